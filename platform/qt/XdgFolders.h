#pragma once

#include <filesystem>
#include <optional>

namespace tilwin::qt {

/// The user's base folders, which need not exist. The home is that of HOME or, if that is no absolute path,
/// of the user's passwd entry. Nothing if the folder's variable has no absolute path either: then nothing is
/// kept there, rather than where others can put something in its place. For the main thread. Sources: XDG
/// Base Directory Specification; POSIX, getpwuid.
struct XdgFolders {
  /// $XDG_DATA_HOME, or ~/.local/share.
  [[nodiscard]] static std::optional<std::filesystem::path> dataHome();
  /// $XDG_CONFIG_HOME, or ~/.config.
  [[nodiscard]] static std::optional<std::filesystem::path> configHome();
};

}  // namespace tilwin::qt
