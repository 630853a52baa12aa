#pragma once

#include <string>
#include <vector>

#include "core/geometry/Rect.h"

namespace tilwin::desktop {

/// What was done to a real window, and its result.
struct Scene {
  std::string by = {};  ///< the shortcut as menus show it, or "drag", "menu", "words", "display"
  std::string action = {};
  std::string application = {};
  Rect expected = {};
  Rect seen = {};
  double milliseconds = 0;  ///< from the key press or release until the window has its final frame
  bool timed = true;        ///< false if the program waits on purpose, or another scene is in between
  bool right = false;
};

/// The scenes as a table with a heading, columns aligned.
[[nodiscard]] std::string tableOf(const std::vector<Scene>& scenes);

/// "29 of 29 frames right …", with the median and longest time of those that are timed.
[[nodiscard]] std::string summaryOf(const std::vector<Scene>& scenes);

}  // namespace tilwin::desktop
