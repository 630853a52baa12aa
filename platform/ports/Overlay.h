#pragma once

#include "core/geometry/Rect.h"

namespace tilwin {

/// How the overlay looks on every desktop: filled and bordered in the accent colour. Lengths in points.
struct OverlayStyle {
  static constexpr double fillOpacity = 0.22;
  static constexpr double borderOpacity = 0.7;
  static constexpr double borderWidth = 2;
  static constexpr double cornerRadius = 10;
};

/// A translucent sheet above all windows that shows where a dragged window would go. It never takes the focus
/// or a click and is in no list of windows.
class Overlay {
public:
  Overlay() = default;
  Overlay(const Overlay&) = delete;
  Overlay& operator=(const Overlay&) = delete;
  virtual ~Overlay() = default;

  /// Puts it there at once, in front of everything; made on first use. A frame that is not placeable changes
  /// nothing.
  void show(const Rect& frame) {
    if (frame.isPlaceable()) showAt(frame);
  }
  virtual void hide() = 0;

protected:
  /// What `show` does for each desktop; the frame is placeable.
  virtual void showAt(const Rect& frame) = 0;
};

}  // namespace tilwin
