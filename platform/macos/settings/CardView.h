#pragma once

#import <AppKit/AppKit.h>

#include <vector>

#include "platform/macos/settings/FormView.h"
#include "platform/macos/settings/KeptViews.h"
#include "platform/macos/settings/Report.h"
#include "platform/macos/settings/RowView.h"
#include "platform/ports/FormModel.h"

/// The rows of a group on a rounded sheet, beside the group's picture if it has one: the window is never too
/// narrow for that. Rows of mere buttons stand without a sheet.
@interface TWCardView : TWFormView {
  tilwin::macos::Held<TWPictureView*> picture_;
  tilwin::macos::KeptViews<TWRowView> rows_;
  BOOL isBare_;
}
- (instancetype)initWithReport:(tilwin::macos::Report)report;
- (void)displayModel:(const tilwin::FormGroup&)group;
- (CGFloat)heightForWidth:(CGFloat)width;
/// Puts its parts where they belong in its frame.
- (void)arrange;
/// Appends the views of its controls that take the keyboard focus, in reading order.
- (void)addKeyViewsTo:(std::vector<NSView*>&)views;
@end
