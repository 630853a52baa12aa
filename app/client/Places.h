#pragma once

#include <array>
#include <filesystem>
#include <string_view>

namespace tilwin::client {

/// Where the program proper is, as seen from the folder of the `tilwin` that is called, and the other way
/// round: in a build folder, and as packages have it (Filesystem Hierarchy Standard, /usr/libexec).
struct Place {
  std::string_view program;
  std::string_view called;
};

inline constexpr std::array places = std::to_array<Place>({
    {"libexec/tilwin", "../tilwin"},
    {"../libexec/tilwin/tilwin", "../../bin/tilwin"},
});

/// What somebody calls to start the program whose executable this is: the executable itself if there is
/// nothing else.
[[nodiscard]] inline std::filesystem::path calledFor(const std::filesystem::path& program) {
  std::error_code unknown;
  for (const Place& place : places) {
    auto called = (program.parent_path() / place.called).lexically_normal();
    const auto back = (called.parent_path() / place.program).lexically_normal();
    if (back == program && std::filesystem::exists(called, unknown)) return called;
  }
  return program;
}

}  // namespace tilwin::client
