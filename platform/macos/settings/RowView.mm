#include "platform/macos/settings/RowView.h"

#include <algorithm>
#include <utility>

#include "platform/drawing/FormRows.h"

using tilwin::FormRow;
using tilwin::macos::addLabel;
using tilwin::macos::LabelTone;
using tilwin::macos::PictureScale;
using tilwin::macos::Report;
using tilwin::macos::RowColumns;
using tilwin::macos::RowControl;
using tilwin::macos::RowLayout;
using tilwin::macos::RowParts;

@implementation TWRowView

- (instancetype)initWithReport:(Report)report {
  self = [super initWithReport:std::move(report)];
  if (self == nil) return nil;
  title_ = addLabel(self, LabelTone::title);
  note_ = addLabel(self, LabelTone::secondary);
  problem_ = addLabel(self, LabelTone::problem);
  return self;
}

- (void)displayModel:(const FormRow&)row {
  id_ = row.id;
  tilwin::macos::updatePicture(picture_, row.picture, PictureScale::small, report_, self);
  [title_.get() displayText:row.title];
  tilwin::macos::updateControls(controls_, row, report_, self);
  [note_.get() displayText:row.note];
  [problem_.get() displayText:row.problem];
  isBare_ = tilwin::drawing::isButtonsOnly(row);
}

- (const std::string&)formId {
  return id_;
}

- (RowColumns)wantedColumns {
  RowColumns wanted;
  if (std::ranges::none_of(controls_, &RowControl::stretches)) return wanted;
  if (![title_.get() isHidden]) wanted.title = [title_.get() naturalWidth];
  for (const auto& control : controls_) {
    if (control.caption) wanted.caption = std::max(wanted.caption, [control.caption.get() naturalWidth]);
  }
  return wanted;
}

- (void)setColumns:(RowColumns)columns padding:(CGFloat)padding {
  columns_ = columns;
  padding_ = padding;
}

- (BOOL)isBare {
  return isBare_;
}

- (RowParts)parts {
  RowParts parts{.picture = picture_.get(),
                 .title = title_.get(),
                 .note = note_.get(),
                 .problem = problem_.get(),
                 .columns = columns_,
                 .padding = padding_};
  for (const auto& control : controls_) {
    parts.controls.push_back({control.view.get(), control.caption.get(), control.stretches});
  }
  return parts;
}

- (CGFloat)heightForWidth:(CGFloat)width {
  return RowLayout([self parts], width).height();
}

- (void)arrange {
  const RowLayout layout([self parts], [self bounds].size.width);
  for (const auto& [view, area] : layout.places()) {
    tilwin::macos::place(view, NSMakeRect(area.x, area.y, area.width, area.height));
  }
}

- (void)addKeyViewsTo:(std::vector<NSView*>&)views {
  for (const auto& control : controls_) views.push_back([control.view.get() keyView]);
}

@end

namespace tilwin::macos {

void updatePicture(Held<TWPictureView*>& view, const std::optional<FormPicture>& picture, PictureScale scale,
                   const Report& report, NSView* parent) {
  if (!picture) {
    if (view) discard(view.get());
    view = {};
    return;
  }
  if (!view) {
    view = owned([[TWPictureView alloc] initWithScale:scale report:report]);
    [parent addSubview:view.get()];
  }
  [view.get() displayPicture:*picture];
}

}  // namespace tilwin::macos
