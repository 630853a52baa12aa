#pragma once

#include "platform/x11/overlay/AccentColour.h"
#include "platform/x11/overlay/RoundedFrame.h"
#include "platform/x11/wire/X11Connection.h"

namespace tilwin::x11 {

/// The X window of the overlay: unmanaged, deaf to the pointer and dressed by `OverlayStyle`. With a
/// compositor it is a translucent sheet in a 32-bit visual. Without one nothing on X11 is translucent, so it
/// is cut down to its border, opaque, and what lies below stays in view.
///
/// Requests are left in the connection's buffer; whoever calls flushes it. Sources: X11 core protocol;
/// Nonrectangular Window Shape Extension 1.1 (input shapes); EWMH (window type).
class OverlayWindow {
public:
  enum class Look { translucent, outline };

  /// Made unmapped, and destroyed with this. The connection must outlive it. A screen without a 32-bit visual
  /// gets the outline whatever is asked for.
  OverlayWindow(const X11Connection& x, AccentColour accent, Look look);
  OverlayWindow(const OverlayWindow&) = delete;
  OverlayWindow& operator=(const OverlayWindow&) = delete;
  ~OverlayWindow();

  [[nodiscard]] xcb_window_t id() const { return window_; }
  /// The look that was asked for.
  [[nodiscard]] Look look() const { return look_; }

  /// In root coordinates, in front of everything.
  void show(const PixelRect& at);
  void hide();
  /// Draws what the server does not by itself; for when it says that the picture was lost.
  void draw() const;

private:
  void create(const xcb_screen_t& screen);
  void describe() const;
  void cutOut() const;
  void drawSides(const RoundedFrame& frame) const;
  void drawCorners(const RoundedFrame& frame) const;
  [[nodiscard]] RoundedFrame frame() const;

  const X11Connection& x_;
  AccentColour accent_;
  Look look_;
  xcb_visualid_t sheetVisual_ = XCB_NONE;  ///< none for an outline
  xcb_window_t window_;
  xcb_colormap_t colormap_ = XCB_NONE;
  xcb_gcontext_t brush_ = XCB_NONE;
  PixelRect at_;
  bool isMapped_ = false;
};

}  // namespace tilwin::x11
