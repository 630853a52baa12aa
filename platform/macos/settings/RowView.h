#pragma once

#import <AppKit/AppKit.h>

#include <string>
#include <vector>

#include "platform/macos/settings/FormView.h"
#include "platform/macos/settings/Label.h"
#include "platform/macos/settings/PictureView.h"
#include "platform/macos/settings/Report.h"
#include "platform/macos/settings/RowControl.h"
#include "platform/macos/settings/RowToolkit.h"
#include "platform/macos/support/Held.h"
#include "platform/ports/FormModel.h"

/// One row of a form.
@interface TWRowView : TWFormView {
  std::string id_;
  tilwin::macos::Held<TWPictureView*> picture_;
  tilwin::macos::Held<TWLabel*> title_;
  tilwin::macos::Held<TWLabel*> note_;
  tilwin::macos::Held<TWLabel*> problem_;
  std::vector<tilwin::macos::RowControl> controls_;
  tilwin::macos::RowColumns columns_;
  CGFloat padding_;
  BOOL isBare_;
}
- (instancetype)initWithReport:(tilwin::macos::Report)report;
- (void)displayModel:(const tilwin::FormRow&)row;
- (const std::string&)formId;
/// The columns that this row would like.
- (tilwin::macos::RowColumns)wantedColumns;
- (void)setColumns:(tilwin::macos::RowColumns)columns padding:(CGFloat)padding;
/// Whether it is nothing but buttons.
- (BOOL)isBare;
- (CGFloat)heightForWidth:(CGFloat)width;
/// Puts its parts where they belong in its frame.
- (void)arrange;
/// Appends the views of its controls that take the keyboard focus, in reading order.
- (void)addKeyViewsTo:(std::vector<NSView*>&)views;
@end

namespace tilwin::macos {

/// Shows the picture in `view`, a child of `parent` which is made and removed as needed.
void updatePicture(Held<TWPictureView*>& view, const std::optional<FormPicture>& picture, PictureScale scale,
                   const Report& report, NSView* parent);

}  // namespace tilwin::macos
