#pragma once

#include <memory>

#include "platform/ports/Overlay.h"
#include "platform/x11/overlay/AccentColour.h"
#include "platform/x11/overlay/OverlayWindow.h"
#include "platform/x11/wire/Reply.h"
#include "platform/x11/wire/X11Connection.h"

namespace tilwin::x11 {

/// The overlay as a window of this program's own. Each show asks, in its one round trip, whether a compositor
/// runs (it owns the selection _NET_WM_CM_Sn; EWMH), and takes another window when that has changed.
class X11Overlay : public Overlay {
public:
  /// Makes no window yet. The connection must outlive this, and may tell of no event after it.
  X11Overlay(X11Connection& x, AccentColour accent);
  X11Overlay(const X11Overlay&) = delete;
  X11Overlay& operator=(const X11Overlay&) = delete;
  ~X11Overlay() override;

  void hide() override;

private:
  /// In whole pixels.
  void showAt(const Rect& frame) override;
  [[nodiscard]] bool isComposited();

  X11Connection& x_;
  AccentColour accent_;
  Pending<xcb_intern_atom_reply> compositorAsked_;
  xcb_atom_t compositor_ = XCB_ATOM_NONE;
  std::unique_ptr<OverlayWindow> window_;
};

}  // namespace tilwin::x11
