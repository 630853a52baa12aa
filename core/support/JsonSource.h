#pragma once

#include <string>
#include <string_view>

namespace tilwin {

/// JSON text made ready for the library that reads it. Text that is not JSON stays so.
struct JsonSource {
  /// With each number that no double can hold replaced by null.
  [[nodiscard]] static std::string withoutOverflows(std::string_view json);
  /// With one space for each run of blanks outside strings. The library looks at a blank as long as at
  /// anything else, and more than half of a text made for people is blanks.
  [[nodiscard]] static std::string withSingleBlanks(std::string_view json);
};

}  // namespace tilwin
