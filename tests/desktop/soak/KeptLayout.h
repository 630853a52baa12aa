#pragma once

#include <map>
#include <optional>
#include <string>

#include "core/geometry/NormalizedRect.h"
#include "tests/desktop/harness/PrivateHome.h"

namespace tilwin::desktop::soak {

/// Where a window belongs: a share of the free area of a display, counted by the order of displays.
struct KeptPlace {
  std::size_t display = 0;
  NormalizedRect share;
};

/// By the class of their windows, which no two windows share.
using KeptPlaces = std::map<std::string, KeptPlace>;

/// What the program keeps for a set of displays, read from its file as another program would; nothing if it
/// keeps nothing for it. Throws HarnessError if the file is not whole.
[[nodiscard]] std::optional<KeptPlaces> keptLayout(const PrivateHome& home, const std::string& signature);

}  // namespace tilwin::desktop::soak
