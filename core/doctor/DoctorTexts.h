#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "core/doctor/DesktopFacts.h"
#include "core/settings/HotKeySpec.h"
#include "core/settings/Wording.h"

namespace tilwin {

/// How the report for bugs says things.
struct DoctorTexts {
  /// In the words of the desktop, except that arrows are arrows: "Ctrl+Alt+←".
  [[nodiscard]] static std::string keys(const HotKeySpec& keys, const Wording& wording);
  /// With the home folder as "~", as it may have the user's name in it.
  [[nodiscard]] static std::string path(const std::filesystem::path& path,
                                        const std::optional<std::filesystem::path>& home);
  /// "12.3 ms"
  [[nodiscard]] static std::string milliseconds(MoveTimes::Seconds time);
  /// "0644"
  [[nodiscard]] static std::string mode(std::uint32_t mode);
};

}  // namespace tilwin
