#pragma once

#include <string>
#include <string_view>

namespace tilwin {

/// Where the user of a window manager changes its keys and its tiling. What is empty is not known.
struct KnownManager {
  std::string_view announced{};   ///< part of the name by which it announces itself, in lower case
  std::string_view name{};        ///< of its program
  std::string_view keysAt{};      ///< where its own keys are removed
  std::string_view commandsAt{};  ///< where a key is bound to a command; empty: at the same place
  std::string_view tilesUntil{};  ///< where its tiling at edges is turned off; empty: it has none at first
};

struct KnownManagers {
  /// Nothing is known of most: all fields are empty then.
  [[nodiscard]] static KnownManager named(std::string_view announced);
  /// What the manager uses the keys for unless its user has changed that, such as "its desktops". Keys are as
  /// in `HotKeyText`. Empty if it does not use them.
  [[nodiscard]] static std::string_view use(const KnownManager& manager, std::string_view keys);
};

}  // namespace tilwin
