#pragma once

#include <memory>

#include "platform/ports/Overlay.h"
#include "platform/x11/AccentColour.h"
#include "platform/x11/OverlayWindow.h"
#include "platform/x11/Reply.h"
#include "platform/x11/X11Connection.h"

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

  /// In whole pixels. A frame that has no place on any X screen is not shown.
  void show(const Rect& frame) override;
  void hide() override;

private:
  [[nodiscard]] bool isComposited();

  X11Connection& x_;
  AccentColour accent_;
  Pending<xcb_intern_atom_reply> compositorAsked_;
  xcb_atom_t compositor_ = XCB_ATOM_NONE;
  std::unique_ptr<OverlayWindow> window_;
};

}  // namespace tilwin::x11
