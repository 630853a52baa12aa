#pragma once

#include <string>

#include "core/geometry/Rect.h"
#include "core/support/DecimalText.h"

namespace tilwin {

/// A frame as X11's tools write it, in whole points: 720x875+0+25.
[[nodiscard]] inline std::string geometryText(const Rect& frame) {
  const auto signedText = [](double number) { return (number < 0 ? "" : "+") + decimalText(number, 0); };
  return decimalText(frame.width, 0) + "x" + decimalText(frame.height, 0) + signedText(frame.x) +
         signedText(frame.y);
}

}  // namespace tilwin
