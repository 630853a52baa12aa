#pragma once

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <bit>
#include <cmath>
#include <cstdint>

#include "core/geometry/DisplayInfo.h"
#include "core/geometry/NormalizedRect.h"
#include "core/geometry/Rect.h"
#include "core/snap/actions/SnapAction.h"

/// Random values for properties.

namespace tilwin::arbitrary {

/// From `least` to `most`, both included.
inline int whole(int least, int most) { return *rc::gen::inRange(least, most + 1); }

/// Any finite number, from the whole range of exponents.
inline double finite() {
  return *rc::gen::suchThat(rc::gen::map(rc::gen::arbitrary<std::uint64_t>(),
                                         [](auto bits) { return std::bit_cast<double>(bits); }),
                            [](double number) { return std::isfinite(number); });
}

/// Any rectangle of finite numbers.
inline Rect anyRect() { return {finite(), finite(), finite(), finite()}; }

/// A fraction in thousandths, also far outside 0 to 1.
inline double share() { return whole(-3000, 3000) / 1000.0; }

/// An area such as a display's visible frame.
inline Rect area() {
  return {1.0 * whole(-4000, 4000), 1.0 * whole(-3000, 3000), 1.0 * whole(320, 5120), 1.0 * whole(240, 2880)};
}

/// A rectangle in whole points, of any positive size, anywhere near the area.
inline Rect nearby(const Rect& area) {
  return {area.x + whole(-6000, 6000), area.y + whole(-6000, 6000), 1.0 * whole(1, 6000),
          1.0 * whole(1, 6000)};
}

/// A rectangle in whole points inside the area, at least a tenth of it in each direction.
inline Rect inside(const Rect& area) {
  const int width = whole(static_cast<int>(std::ceil(area.width / 10)), static_cast<int>(area.width));
  const int height = whole(static_cast<int>(std::ceil(area.height / 10)), static_cast<int>(area.height));
  return {area.x + whole(0, static_cast<int>(area.width) - width),
          area.y + whole(0, static_cast<int>(area.height) - height), 1.0 * width, 1.0 * height};
}

inline SnapAction action() {
  const auto all = SnapActions::all();
  return all[static_cast<std::size_t>(whole(0, static_cast<int>(all.size()) - 1))];
}

/// An action that fills cells of a grid.
inline SnapAction gridAction() {
  return *rc::gen::suchThat(rc::gen::exec(action),
                            [](SnapAction a) { return SnapActions::region(a).has_value(); });
}

}  // namespace tilwin::arbitrary
