#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "core/geometry/DisplayInfo.h"

namespace tilwin {

/// Why a text does not name displays.
struct DisplayTextError {
  std::string message;

  bool operator==(const DisplayTextError&) const = default;
};

/// Displays written the way X geometries are, WIDTHxHEIGHT+X+Y separated by commas, as in
/// "1440x900+0+0,2560x1440+1440-200", where -200 is a place above or left of the origin. The first display is
/// the primary one; they are numbered from 1 and all of each is visible.
[[nodiscard]] std::variant<std::vector<DisplayInfo>, DisplayTextError> parseDisplays(std::string_view text);

}  // namespace tilwin
