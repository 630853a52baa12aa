#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tests/desktop/harness/PrivateHome.h"

namespace tilwin::desktop {

using Names = std::vector<std::string>;

/// The settings in Tilwin's file, as far as the tests change them.
struct SavedSettings {
  double outer = 0;
  Names areas;
  Names ignored;
  bool recordsDrags = false;
};

/// The layouts in Tilwin's file.
struct SavedLayouts {
  Names names;  ///< of those that the user saved
  /// The number of windows in each layout that was captured for a set of displays, and all their text.
  std::vector<std::size_t> automatic;
  std::string text;
};

/// These read the files as another program would. Nothing if there is no file. A file that is not whole
/// throws HarnessError.
[[nodiscard]] std::optional<SavedSettings> savedSettings(const PrivateHome& home);
[[nodiscard]] std::optional<SavedLayouts> savedLayouts(const PrivateHome& home);

}  // namespace tilwin::desktop
