#pragma once

#include <string>
#include <vector>

#include "core/geometry/Rect.h"

namespace tilwin::desktop {

/// One shortcut or drag played on a real window, and what came of it.
struct Scene {
  std::string by = {};  ///< the shortcut as menus show it, or that it was dragged
  std::string action = {};
  std::string application = {};
  Rect expected = {};
  Rect seen = {};
  double milliseconds = 0;  ///< from the press, or from letting go, to the window standing where it stays
  bool right = false;
};

/// The scenes as a table with a heading, columns aligned.
[[nodiscard]] std::string tableOf(const std::vector<Scene>& scenes);

/// "29 of 29 frames right …", with the median and longest time.
[[nodiscard]] std::string summaryOf(const std::vector<Scene>& scenes);

}  // namespace tilwin::desktop
