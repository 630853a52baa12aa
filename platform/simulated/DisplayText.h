#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "core/geometry/DisplayInfo.h"

namespace tilwin {

/// The error of `parseDisplays`.
struct DisplayTextError {
  std::string message;

  bool operator==(const DisplayTextError&) const = default;
};

/// Parses displays written as WIDTHxHEIGHT+X+Y in points, separated by commas, as in
/// "1440x900+0+0,2560x1440+1440-200". Unlike in an X geometry, -200 is a coordinate: above or left of the
/// origin. The first display is the primary one. Ids count from 1, and visible frames are whole frames.
[[nodiscard]] std::variant<std::vector<DisplayInfo>, DisplayTextError> parseDisplays(std::string_view text);

}  // namespace tilwin
