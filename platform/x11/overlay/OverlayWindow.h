#pragma once

#include "platform/x11/overlay/AccentColour.h"
#include "platform/x11/overlay/RoundedFrame.h"
#include "platform/x11/wire/X11Connection.h"

namespace tilwin::x11 {

/// The X window of the overlay, in the look of `OverlayStyle`. No window manager manages it, and it lets
/// clicks through. With a compositor it is a translucent sheet with a 32-bit visual. Without a compositor X11
/// has no translucent windows; the window is then an opaque outline, so that what lies below stays visible.
///
/// Requests stay in the connection's buffer until the caller flushes it. Positions and sizes are pixels.
/// Sources: X11 core protocol; Nonrectangular Window Shape Extension 1.1 (input shapes); EWMH (window type).
class OverlayWindow {
public:
  enum class Look { translucent, outline };

  /// Creates the window, hidden; the destructor destroys it. The connection must outlive this. On a screen
  /// without a 32-bit visual the window is an outline even if the translucent look is requested.
  OverlayWindow(const X11Connection& x, AccentColour accent, Look look);
  OverlayWindow(const OverlayWindow&) = delete;
  OverlayWindow& operator=(const OverlayWindow&) = delete;
  ~OverlayWindow();

  [[nodiscard]] xcb_window_t id() const { return window_; }
  /// The requested look.
  [[nodiscard]] Look look() const { return look_; }

  /// Shows the window at this place in root coordinates, above all others.
  void show(const PixelRect& at);
  void hide();
  /// Draws the border. Call it when the server reports that the content was lost (Expose); the server fills
  /// the background itself.
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
  xcb_visualid_t sheetVisual_ = XCB_NONE;  ///< XCB_NONE for an outline
  xcb_window_t window_;
  xcb_colormap_t colormap_ = XCB_NONE;
  xcb_gcontext_t brush_ = XCB_NONE;
  PixelRect at_;
  bool isMapped_ = false;
};

}  // namespace tilwin::x11
