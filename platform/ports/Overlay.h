#pragma once

#include "core/geometry/Rect.h"

namespace tilwin {

/// The look of the overlay on every desktop; fill and border have the accent colour. Lengths are in points.
struct OverlayStyle {
  static constexpr double fillOpacity = 0.22;
  static constexpr double borderOpacity = 0.7;
  static constexpr double borderWidth = 2;
  static constexpr double cornerRadius = 10;
};

/// A translucent sheet above all windows that shows where a dragged window would go. It never takes the focus
/// or a click and is not part of any list of windows. Frames are in points.
class Overlay {
public:
  Overlay() = default;
  Overlay(const Overlay&) = delete;
  Overlay& operator=(const Overlay&) = delete;
  virtual ~Overlay() = default;

  /// Shows the overlay at this frame, above everything, at once. Ignores a frame that is not placeable.
  void show(const Rect& frame) {
    if (frame.isPlaceable()) showAt(frame);
  }
  virtual void hide() = 0;

protected:
  /// Implements `show`; the frame is placeable.
  virtual void showAt(const Rect& frame) = 0;
};

}  // namespace tilwin
