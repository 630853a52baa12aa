#pragma once

#import <AppKit/AppKit.h>

#include "platform/macos/support/Held.h"
#include "platform/ports/Overlay.h"

/// Fills itself with the look of an overlay, in the accent colour of this moment.
@interface TWOverlayView : NSView
@end

namespace tilwin::macos {

/// The overlay as a window of AppKit, made when it is first shown. Main thread only.
class MacOverlay final : public Overlay {
public:
  MacOverlay() = default;
  MacOverlay(const MacOverlay&) = delete;
  MacOverlay& operator=(const MacOverlay&) = delete;
  ~MacOverlay() override;

  void hide() override;

private:
  void showAt(const Rect& frame) override;

  Held<NSWindow*> window_;
};

}  // namespace tilwin::macos
