#pragma once

#include <filesystem>
#include <optional>

namespace tilwin::qt {

/// The user's base folders, which need not exist. Nothing if neither the folder's variable nor HOME has an
/// absolute path. Source: XDG Base Directory Specification.
struct XdgFolders {
  /// $XDG_DATA_HOME, or ~/.local/share.
  [[nodiscard]] static std::optional<std::filesystem::path> dataHome();
  /// $XDG_CONFIG_HOME, or ~/.config.
  [[nodiscard]] static std::optional<std::filesystem::path> configHome();
};

}  // namespace tilwin::qt
