#include "platform/macos/settings/GroupView.h"

#include <utility>

#include "platform/macos/support/Text.h"

using tilwin::FormGroup;
using tilwin::macos::LabelTone;
using tilwin::macos::Report;

namespace metrics = tilwin::macos::metrics;

@implementation TWGroupView

- (instancetype)initWithReport:(Report)report {
  self = [super initWithReport:std::move(report)];
  if (self == nil) return nil;
  heading_ = tilwin::macos::addLabel(self, LabelTone::heading);
  card_ = tilwin::macos::owned([[TWCardView alloc] initWithReport:report_]);
  [self addSubview:card_.get()];
  [self setAccessibilityElement:YES];
  [self setAccessibilityRole:NSAccessibilityGroupRole];
  return self;
}

- (void)displayModel:(const FormGroup&)group {
  id_ = group.id;
  [heading_.get() displayText:group.heading];
  [self setAccessibilityLabel:tilwin::macos::text(group.heading)];
  [card_.get() setHidden:group.rows.empty() && !group.picture];
  [card_.get() displayModel:group];
}

- (const std::string&)formId {
  return id_;
}

- (CGFloat)headingHeightForWidth:(CGFloat)width {
  return [heading_.get() isHidden] ? 0 : [heading_.get() heightForWidth:width] + metrics::grid;
}

- (CGFloat)heightForWidth:(CGFloat)width {
  return
      [self headingHeightForWidth:width] + ([card_.get() isHidden] ? 0 : [card_.get() heightForWidth:width]);
}

- (void)arrange {
  const NSSize size = [self bounds].size;
  const CGFloat heading = [self headingHeightForWidth:size.width];
  if (heading > 0)
    tilwin::macos::place(heading_.get(), NSMakeRect(0, 0, size.width, heading - metrics::grid));
  tilwin::macos::place(card_.get(), NSMakeRect(0, heading, size.width, size.height - heading));
  [card_.get() arrange];
}

- (void)addKeyViewsTo:(std::vector<NSView*>&)views {
  [card_.get() addKeyViewsTo:views];
}

@end
