#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "tests/desktop/harness/PrivateHome.h"

namespace tilwin::desktop {

enum class Manager { openbox, xfwm4, metacity, kwin };

/// Those that everything is run under.
inline constexpr std::array<Manager, 3> allManagers{Manager::openbox, Manager::xfwm4, Manager::metacity};
/// Those that windows are dragged under: how a window moves with the pointer is each manager's own affair.
inline constexpr std::array<Manager, 4> draggingManagers{Manager::openbox, Manager::xfwm4, Manager::metacity,
                                                         Manager::kwin};

/// How a manager is set up. Always: none of Tilwin's default shortcuts is bound, and dragging to a screen
/// edge tiles nothing.
struct ManagerSetup {
  /// Its own compositor on or off; as it ships when not given. A manager without one ignores this.
  std::optional<bool> compositing = {};
  /// Binds its own tile-to-left and tile-to-right to nativeTileLeft and nativeTileRight. Not so kwin, whose
  /// keys are taken by a service that drops a press until the two have met, and shows nobody when they have.
  bool nativeTileKeys = false;
  bool operator==(const ManagerSetup&) const = default;
};

inline constexpr const char* nativeTileLeft = "Super+Left";
inline constexpr const char* nativeTileRight = "Super+Right";

/// What the tests need to know about one manager: a row of the table of managers.
struct ManagerTraits {
  Manager manager;
  /// In test names and logs, and what it calls itself to others, but for capitals.
  const char* name;
  const char* program;
  /// Its argument: keep away from any session manager.
  const char* argument;
  /// Whether it composites as it ships, and whether it can at all.
  bool compositesByDefault;
  bool canComposite;
  /// The modifier held to move a window by any part of it.
  const char* moveModifier;
  /// Writes its settings into the home, before it starts.
  void (*configure)(const PrivateHome& home, const ManagerSetup& setup);
};

const ManagerTraits& traits(Manager manager);
/// The manager with that name in the table; nothing when there is none.
std::optional<Manager> managerNamed(std::string_view name);

/// Each writes one manager's own settings files into the home, as ManagerSetup describes.
void configureOpenbox(const PrivateHome& home, const ManagerSetup& setup);
void configureXfwm4(const PrivateHome& home, const ManagerSetup& setup);
void configureMetacity(const PrivateHome& home, const ManagerSetup& setup);
void configureKwin(const PrivateHome& home, const ManagerSetup& setup);

}  // namespace tilwin::desktop
