#include "core/support/UserLocale.h"

#include <array>
#include <cstdlib>
#include <string_view>

namespace tilwin {

icu::Locale userLocale(const char* category) {
  for (const char* variable : std::to_array<const char*>({"LC_ALL", category, "LANG"})) {
    const char* const value = std::getenv(variable);
    if (value == nullptr || *value == '\0') continue;
    const std::string_view name(value);
    const bool isPosix = name == "POSIX" || name == "C" || name.substr(0, 2) == "C.";
    return icu::Locale::createCanonical(isPosix ? "en_US_POSIX" : value);
  }
  return icu::Locale::getDefault();
}

}  // namespace tilwin
