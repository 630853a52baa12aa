#pragma once

#import <AppKit/AppKit.h>

#include "platform/macos/support/Held.h"
#include "platform/ports/TemplateImage.h"

namespace tilwin::macos {

/// The picture as a template image: AppKit colours it to suit the menu bar. It is drawn from its shapes for
/// each scale it is shown at. Main thread only.
[[nodiscard]] Held<NSImage*> templateImage(const TemplateImage& image);

}  // namespace tilwin::macos
