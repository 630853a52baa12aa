#pragma once

#import <AppKit/AppKit.h>

#include "platform/macos/settings/FormView.h"
#include "platform/macos/settings/Measured.h"
#include "platform/macos/settings/Report.h"
#include "platform/ports/FormModel.h"

namespace tilwin::macos {

enum class PictureScale { small, large };

}  // namespace tilwin::macos

/// A miniature of a display with tiles on it. One with an id can be dragged on with the left mouse button.
@interface TWPictureView : TWFormView <TWMeasured> {
  tilwin::macos::PictureScale scale_;
  tilwin::FormPicture picture_;
  BOOL isHeld_;
}
- (instancetype)initWithScale:(tilwin::macos::PictureScale)scale report:(tilwin::macos::Report)report;
- (void)displayPicture:(const tilwin::FormPicture&)picture;
- (const tilwin::FormPicture&)picture;
/// Where the display is drawn, in its own coordinates. The tiles are fractions of it.
- (NSRect)screen;
@end
