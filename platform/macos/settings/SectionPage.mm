#include "platform/macos/settings/SectionPage.h"

#include <algorithm>
#include <cmath>
#include <utility>

using tilwin::FormSection;
using tilwin::FormTextField;
using tilwin::macos::addLabel;
using tilwin::macos::LabelTone;
using tilwin::macos::Report;

namespace metrics = tilwin::macos::metrics;

namespace {

constexpr CGFloat besideGroups = 3 * metrics::grid;
constexpr CGFloat besideHeaderLines = 6;
constexpr CGFloat belowHeader = 2 * metrics::grid;

tilwin::macos::Held<NSScrollView*> scrollViewOf(NSView* scrolled) {
  auto scroll = tilwin::macos::owned([[NSScrollView alloc] initWithFrame:NSZeroRect]);
  [scroll.get() setBorderType:NSNoBorder];
  [scroll.get() setDrawsBackground:NO];
  [scroll.get() setHasVerticalScroller:YES];
  [scroll.get() setAutohidesScrollers:YES];
  [scroll.get() setDocumentView:scrolled];
  return scroll;
}

}  // namespace

@implementation TWScrolledView

@end

@implementation TWSectionPage

- (instancetype)initWithReport:(Report)report {
  self = [super initWithReport:std::move(report)];
  if (self == nil) return nil;
  title_ = addLabel(self, LabelTone::pageTitle);
  help_ = addLabel(self, LabelTone::secondary);
  scrolled_ = tilwin::macos::owned([[TWScrolledView alloc] initWithFrame:NSZeroRect]);
  emptyText_ = addLabel(scrolled_.get(), LabelTone::secondary);
  scroll_ = scrollViewOf(scrolled_.get());
  [self addSubview:scroll_.get()];
  return self;
}

- (void)displayModel:(const FormSection&)section {
  section_ = section.id;
  [title_.get() displayText:section.title];
  [help_.get() displayText:section.help];
  [self displaySearch:section.search];
  groups_.update(section.groups, scrolled_.get(),
                 [&] { return tilwin::macos::owned([[TWGroupView alloc] initWithReport:report_]); });
  [emptyText_.get() displayText:section.groups.empty() ? section.emptyText : std::string()];
}

- (void)displaySearch:(const std::optional<FormTextField>&)search {
  if (search_ && (!search || [search_.get() formId] != search->id)) {
    tilwin::macos::discard(search_.get());
    search_ = {};
  }
  if (!search) return;
  if (!search_) {
    search_ = tilwin::macos::owned([[TWFieldView alloc] initWithReport:report_ isSearch:search->isSearch]);
    [self addSubview:search_.get()];
  }
  [search_.get() displayModel:*search];
}

- (const std::string&)formId {
  return section_;
}

- (void)addKeyViewsTo:(std::vector<NSView*>&)views {
  if (search_) views.push_back([search_.get() keyView]);
  for (const auto& group : groups_.views()) [group.get() addKeyViewsTo:views];
}

- (BOOL)focusSearch {
  return search_ && [[self window] makeFirstResponder:[search_.get() keyView]];
}

- (CGFloat)side {
  return std::max(metrics::pageMargin, std::floor(([self bounds].size.width - metrics::widestContent) / 2));
}

/// Returns where the header ends.
- (CGFloat)arrangeHeader {
  const CGFloat width = [self bounds].size.width - 2 * [self side];
  CGFloat y = metrics::pageMargin;
  for (tilwin::macos::MeasuredView* line :
       std::initializer_list<tilwin::macos::MeasuredView*>{title_.get(), help_.get(), search_.get()}) {
    if (line == nil || [line isHidden]) continue;
    const CGFloat height = [line heightForWidth:width];
    tilwin::macos::place(line, NSMakeRect([self side], y, width, height));
    y += height + besideHeaderLines;
  }
  return y - besideHeaderLines + belowHeader;
}

/// Returns where the groups end.
- (CGFloat)arrangeGroupsWithWidth:(CGFloat)width {
  CGFloat y = 2;
  if (![emptyText_.get() isHidden]) {
    const CGFloat height = [emptyText_.get() heightForWidth:width];
    tilwin::macos::place(emptyText_.get(), NSMakeRect([self side], y, width, height));
    y += height + besideGroups;
  }
  for (const auto& group : groups_.views()) {
    const CGFloat height = [group.get() heightForWidth:width];
    tilwin::macos::place(group.get(), NSMakeRect([self side], y, width, height));
    [group.get() arrange];
    y += height + besideGroups;
  }
  return y - besideGroups + metrics::pageMargin;
}

- (void)arrange {
  const NSSize size = [self bounds].size;
  const CGFloat top = [self arrangeHeader];
  tilwin::macos::place(scroll_.get(), NSMakeRect(0, top, size.width, size.height - top));
  const NSSize seen = [scroll_.get() contentSize];
  // Cards end where the header ends, whether or not the scroller takes room.
  const CGFloat height = [self arrangeGroupsWithWidth:size.width - 2 * [self side]];
  const NSSize wanted = NSMakeSize(seen.width, std::max(height, seen.height));
  if (!NSEqualSizes([scrolled_.get() frame].size, wanted)) [scrolled_.get() setFrameSize:wanted];
}

- (void)resizeSubviewsWithOldSize:(NSSize)oldSize {
  (void)oldSize;
  [self arrange];
}

@end
