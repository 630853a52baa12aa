#pragma once

#include <string>
#include <string_view>

#include "platform/macos/support/CFOwned.h"

namespace tilwin::macos {

/// Empty for bytes that are not UTF-8.
[[nodiscard]] CFOwned<CFStringRef> cfText(std::string_view utf8);

/// UTF-8; half a surrogate pair, which that cannot express, becomes a question mark. The string is not null.
[[nodiscard]] std::string utf8(CFStringRef string);

}  // namespace tilwin::macos
