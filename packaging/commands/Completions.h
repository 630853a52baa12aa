#pragma once

#include <string>

namespace tilwin {

/// What shells need to complete the words of a command. Names that the user chose are asked of `tilwin`
/// itself.
[[nodiscard]] std::string bashCompletion();
[[nodiscard]] std::string zshCompletion();
[[nodiscard]] std::string fishCompletion();

}  // namespace tilwin
