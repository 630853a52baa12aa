#include "platform/macos/settings/ToggleView.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/macos/support/Text.h"

using tilwin::FormToggle;
using tilwin::macos::LabelTone;
using tilwin::macos::Report;

namespace {

constexpr CGFloat besideBox = 7;

}  // namespace

@implementation TWToggleView

- (instancetype)initWithReport:(Report)report {
  self = [super initWithReport:std::move(report)];
  if (self == nil) return nil;
  box_ = tilwin::macos::owned([[TWKeyButton alloc] initWithFrame:NSZeroRect]);
  [box_.get() setButtonType:NSButtonTypeSwitch];
  [box_.get() setTitle:@""];
  [box_.get() setImagePosition:NSImageOnly];
  [box_.get() setTarget:self];
  [box_.get() setAction:@selector(flip:)];
  [self addSubview:box_.get()];
  title_ = tilwin::macos::addLabel(self, LabelTone::title);
  // The check box has the same name.
  [title_.get() setAccessibilityElement:NO];
  return self;
}

- (void)displayModel:(const FormToggle&)toggle {
  id_ = toggle.id;
  if ([self isOn] != toggle.isOn) {
    [box_.get() setState:toggle.isOn ? NSControlStateValueOn : NSControlStateValueOff];
  }
  [title_.get() displayText:toggle.title];
  [box_.get() setAccessibilityLabel:tilwin::macos::text(toggle.title)];
}

- (BOOL)isOn {
  return [box_.get() state] == NSControlStateValueOn;
}

- (void)flip:(id)sender {
  (void)sender;
  report_(tilwin::form::ToggleChanged{id_, [self isOn] == YES});
}

- (const std::string&)formId {
  return id_;
}

- (NSView*)keyView {
  return box_.get();
}

- (void)setRemark:(NSString*)remark {
  [box_.get() setAccessibilityHelp:remark];
}

- (CGFloat)titleX {
  return tilwin::macos::naturalSize(box_.get()).width + besideBox;
}

- (CGFloat)heightForWidth:(CGFloat)width {
  return std::max(tilwin::macos::naturalSize(box_.get()).height,
                  [title_.get() heightForWidth:width - [self titleX]]);
}

- (void)resizeSubviewsWithOldSize:(NSSize)oldSize {
  (void)oldSize;
  const NSSize size = [self bounds].size;
  const NSSize box = tilwin::macos::naturalSize(box_.get());
  const CGFloat room = size.width - [self titleX];
  const CGFloat text = [title_.get() heightForWidth:room];
  const CGFloat top = (size.height - text) / 2;
  // Beside the first line.
  const CGFloat line = std::min(text, [title_.get() heightForWidth:10'000]);
  tilwin::macos::place(box_.get(),
                       NSMakeRect(0, std::max(top + (line - box.height) / 2, 0.0), box.width, box.height));
  tilwin::macos::place(title_.get(), NSMakeRect([self titleX], top, room, text));
}

- (void)mouseDown:(NSEvent*)event {
  (void)event;
}

- (void)mouseUp:(NSEvent*)event {
  const NSPoint at = [self convertPoint:[event locationInWindow] fromView:nil];
  NSRect clickable = [self bounds];
  clickable.size.width = std::min(clickable.size.width, [self titleX] + [title_.get() naturalWidth]);
  if (NSPointInRect(at, clickable)) [box_.get() performClick:self];
}

@end
