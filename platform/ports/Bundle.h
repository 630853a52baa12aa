#pragma once

#include <filesystem>
#include <optional>

namespace tilwin {

/// The places where this desktop keeps the files of programs.
class Bundle {
public:
  Bundle() = default;
  Bundle(const Bundle&) = delete;
  Bundle& operator=(const Bundle&) = delete;
  virtual ~Bundle() = default;

  /// The folder in which each of the user's programs has a subfolder for its files. Created if it is missing.
  /// Returns nothing if the desktop has no such folder or it cannot be created.
  [[nodiscard]] virtual std::optional<std::filesystem::path> applicationSupport() = 0;
};

}  // namespace tilwin
