#pragma once

#include <filesystem>
#include <optional>

namespace tilwin {

/// The places that a desktop has for what belongs to this program.
class Bundle {
public:
  Bundle() = default;
  Bundle(const Bundle&) = delete;
  Bundle& operator=(const Bundle&) = delete;
  virtual ~Bundle() = default;

  /// The folder in which the user's programs keep their files, each in one of its own; made if it is missing.
  /// Nothing when there is no such place or it cannot be made.
  [[nodiscard]] virtual std::optional<std::filesystem::path> applicationSupport() = 0;
};

}  // namespace tilwin
