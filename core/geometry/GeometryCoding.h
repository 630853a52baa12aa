#pragma once

#include <tuple>

#include "core/geometry/DisplayInfo.h"
#include "core/geometry/NormalizedRect.h"
#include "core/geometry/Rect.h"
#include "core/support/JsonCoding.h"

/// The JSON form of the geometry types.

namespace tilwin {

template <>
struct JsonFields<Rect> {
  static constexpr auto table =
      std::make_tuple(JsonField{"x", &Rect::x}, JsonField{"y", &Rect::y}, JsonField{"width", &Rect::width},
                      JsonField{"height", &Rect::height});
};

/// Read without a range check: `NormalizedRect::rect` clamps the numbers.
template <>
struct JsonFields<NormalizedRect> {
  static constexpr auto table = std::make_tuple(
      JsonField{"x", &NormalizedRect::x}, JsonField{"y", &NormalizedRect::y},
      JsonField{"width", &NormalizedRect::width}, JsonField{"height", &NormalizedRect::height});
};

template <>
struct JsonFields<DisplayInfo> {
  static constexpr auto table = std::make_tuple(
      JsonField{"id", &DisplayInfo::id}, JsonField{"frame", &DisplayInfo::frame},
      JsonField{"visibleFrame", &DisplayInfo::visibleFrame}, JsonField{"isPrimary", &DisplayInfo::isPrimary});
};

}  // namespace tilwin
