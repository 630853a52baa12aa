#pragma once

#include <memory>

#include "platform/ports/Overlay.h"
#include "platform/x11/overlay/AccentColour.h"
#include "platform/x11/overlay/OverlayWindow.h"
#include "platform/x11/wire/Reply.h"
#include "platform/x11/wire/X11Connection.h"

namespace tilwin::x11 {

/// The overlay as an X window of this program, created when first shown. Each `show` normally costs one round
/// trip, which asks whether a compositor runs; if that changed, it creates another window in the look that
/// fits. Source: EWMH, the selection _NET_WM_CM_Sn, which a compositor owns.
class X11Overlay : public Overlay {
public:
  /// Creates no window yet. The connection must outlive this, but must not deliver events afterwards.
  X11Overlay(X11Connection& x, AccentColour accent);
  X11Overlay(const X11Overlay&) = delete;
  X11Overlay& operator=(const X11Overlay&) = delete;
  ~X11Overlay() override;

  void hide() override;

private:
  /// Rounds the frame's edges to whole pixels. Hides the overlay if nothing is left of it.
  void showAt(const Rect& frame) override;
  [[nodiscard]] bool isComposited();

  X11Connection& x_;
  AccentColour accent_;
  Pending<xcb_intern_atom_reply> compositorAsked_;
  xcb_atom_t compositor_ = XCB_ATOM_NONE;
  std::unique_ptr<OverlayWindow> window_;
};

}  // namespace tilwin::x11
