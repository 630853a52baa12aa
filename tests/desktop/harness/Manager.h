#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "tests/desktop/harness/PrivateHome.h"

namespace tilwin::desktop {

enum class Manager { openbox, xfwm4, metacity, kwin };

/// The window managers that all tests run under.
inline constexpr std::array<Manager, 3> allManagers{Manager::openbox, Manager::xfwm4, Manager::metacity};
/// The window managers that drags are tested under, as each implements moving a window by the pointer itself.
inline constexpr std::array<Manager, 4> draggingManagers{Manager::openbox, Manager::xfwm4, Manager::metacity,
                                                         Manager::kwin};

/// The settings of a window manager. None of Tilwin's default shortcuts is ever bound, and its own edge
/// tiling is always off.
struct ManagerSetup {
  /// Its built-in compositor on or off; its default if not given. Ignored if it has none.
  std::optional<bool> compositing = {};
  /// Binds its own tile-to-left and tile-to-right to nativeTileLeft and nativeTileRight. Ignored for kwin: a
  /// separate service grabs its keys and drops presses until it has connected to kwin, which cannot be
  /// observed.
  bool nativeTileKeys = false;
  bool operator==(const ManagerSetup&) const = default;
};

inline constexpr const char* nativeTileLeft = "Super+Left";
inline constexpr const char* nativeTileRight = "Super+Right";

/// What the tests need to know about a window manager: a row of the table.
struct ManagerTraits {
  Manager manager;
  /// The name in tests and logs; apart from capitals, also its _NET_WM_NAME.
  const char* name;
  const char* program;
  /// The argument that keeps it from connecting to a session manager.
  const char* argument;
  /// Whether it composites by default, and whether it can.
  bool compositesByDefault;
  bool canComposite;
  /// The modifier held to move a window by any part of it.
  const char* moveModifier;
  /// Writes its settings into the home, before it starts.
  void (*configure)(const PrivateHome& home, const ManagerSetup& setup);
};

const ManagerTraits& traits(Manager manager);
/// The window manager with this name; nothing if there is none.
std::optional<Manager> managerNamed(std::string_view name);

/// Each writes the settings files of one window manager into the home, as ManagerSetup describes.
void configureOpenbox(const PrivateHome& home, const ManagerSetup& setup);
void configureXfwm4(const PrivateHome& home, const ManagerSetup& setup);
void configureMetacity(const PrivateHome& home, const ManagerSetup& setup);
void configureKwin(const PrivateHome& home, const ManagerSetup& setup);

}  // namespace tilwin::desktop
