#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "tests/desktop/harness/PrivateHome.h"

namespace tilwin::desktop {

enum class Manager { openbox, xfwm4, metacity };

inline constexpr std::array<Manager, 3> allManagers{Manager::openbox, Manager::xfwm4, Manager::metacity};

/// How a manager is set up. Always: none of Tilwin's default shortcuts is bound, and dragging to a screen
/// edge tiles nothing.
struct ManagerSetup {
  /// Its own compositor on or off; as it ships when not given. A manager without one ignores this.
  std::optional<bool> compositing = {};
  /// Binds its own tile-to-left and tile-to-right to nativeTileLeft and nativeTileRight.
  bool nativeTileKeys = false;
  bool operator==(const ManagerSetup&) const = default;
};

inline constexpr const char* nativeTileLeft = "Super+Left";
inline constexpr const char* nativeTileRight = "Super+Right";

/// What the tests need to know about one manager: a row of the table of managers.
struct ManagerTraits {
  Manager manager;
  /// Its program, and the name in test names and logs.
  const char* name;
  /// Its argument: keep away from any session manager.
  const char* argument;
  /// Whether it composites as it ships, and whether it can at all.
  bool compositesByDefault;
  bool canComposite;
  /// Writes its settings into the home, before it starts.
  void (*configure)(const PrivateHome& home, const ManagerSetup& setup);
};

const ManagerTraits& traits(Manager manager);
/// The manager with that name in the table; nothing when there is none.
std::optional<Manager> managerNamed(std::string_view name);

}  // namespace tilwin::desktop
