#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <variant>

namespace tilwin {

/// What this program was built with, and the places where this desktop keeps the files of programs.
class Bundle {
public:
  using InformationValue = std::variant<std::string, bool, std::int64_t>;
  using Information = std::map<std::string, InformationValue>;

  Bundle() = default;
  Bundle(const Bundle&) = delete;
  Bundle& operator=(const Bundle&) = delete;
  virtual ~Bundle() = default;

  /// The folder in which each of the user's programs has a subfolder for its files. Created if it is missing.
  /// Returns nothing if the desktop has no such folder or it cannot be created.
  [[nodiscard]] virtual std::optional<std::filesystem::path> applicationSupport() = 0;
  /// The information dictionary, which is fixed when the program is built. Source: Info.plist of macOS.
  [[nodiscard]] virtual Information information() = 0;

  /// "1.2.3"; empty if the dictionary has none.
  [[nodiscard]] std::string version() {
    const auto all = information();
    const auto entry = all.find("CFBundleShortVersionString");
    const auto* const text = entry == all.end() ? nullptr : std::get_if<std::string>(&entry->second);
    return text == nullptr ? std::string() : *text;
  }
};

}  // namespace tilwin
