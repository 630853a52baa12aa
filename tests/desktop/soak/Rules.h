#pragma once

#include <span>
#include <string>
#include <string_view>

#include "core/geometry/Rect.h"

namespace tilwin::desktop::soak {

/// The settings that decide on frames; distances in points.
struct Spacing {
  double outer = 0;
  double gap = 0;
  bool cycles = true;

  bool operator==(const Spacing&) const = default;
};

/// What the shortcuts do to a window on one display, computed anew: the program is not compared with itself.
/// Actions go by their raw values.
namespace rules {

/// The actions that have a shortcut and place a window on its display: all but restore and the moves to
/// another display.
[[nodiscard]] std::span<const std::string_view> placing();
/// The default shortcut of an action, for `Input`. Throws HarnessError if it has none.
[[nodiscard]] std::string chordOf(std::string_view action);

/// The frame of a window on a display with this free area. Throws HarnessError if the action places none.
[[nodiscard]] Rect frame(std::string_view action, const Rect& current, const Rect& area,
                         const Spacing& spacing);
/// The action that is carried out instead if the window has a width of this action's cycle; else the action.
[[nodiscard]] std::string_view cycled(std::string_view action, const Rect& current, const Rect& area,
                                      const Spacing& spacing);

}  // namespace rules

}  // namespace tilwin::desktop::soak
