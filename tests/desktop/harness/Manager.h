#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "tests/desktop/harness/PrivateHome.h"

namespace tilwin::desktop {

enum class Manager {
  openbox,
  xfwm4,
  metacity,
  kwin,
  icewm,
  fluxbox,
  jwm,
  marco,
  i3,
  herbstluftwm,
  windowmaker,
  awesome,
  bspwm
};

/// The window managers that all tests run under.
inline constexpr std::array<Manager, 3> allManagers{Manager::openbox, Manager::xfwm4, Manager::metacity};
/// The window managers that drags are tested under, as each implements moving a window by the pointer itself.
inline constexpr std::array<Manager, 4> draggingManagers{Manager::openbox, Manager::xfwm4, Manager::metacity,
                                                         Manager::kwin};

/// The settings of a window manager. None of Tilwin's default shortcuts is ever bound, and those that tile
/// let all windows float unless told otherwise.
struct ManagerSetup {
  /// Its built-in compositor on or off; its default if not given. Ignored if it has none.
  std::optional<bool> compositing = {};
  /// Binds its own tile-to-left and tile-to-right to nativeTileLeft and nativeTileRight. kwin's are grabbed
  /// by a separate service, which drops presses until it has connected to kwin; only another press shows
  /// whether it has.
  bool nativeTileKeys = false;
  /// Tiles a window that is dragged to an edge, as kwin, xfwm4, metacity and marco do by default. Ignored for
  /// the others.
  bool edgeTiling = false;
  /// Tiles every window, as i3, herbstluftwm, awesome and bspwm do by default. Ignored for the others.
  bool tilesAll = false;
  /// Shows its own bar along the bottom of the screen, as icewm, fluxbox, jwm, i3 and awesome do by default,
  /// if at the top in some. Ignored for the others.
  bool ownBar = false;
  bool operator==(const ManagerSetup&) const = default;
};

inline constexpr const char* nativeTileLeft = "Super+Left";
inline constexpr const char* nativeTileRight = "Super+Right";

/// What a window manager makes of a request for a place: whose corner it puts there, the frame's or that of
/// the client area in it, and whether it takes _NET_MOVERESIZE_WINDOW (EWMH) or only ConfigureWindow.
enum class Placing { frameByMessage, clientByMessage, frameByRequest, clientByRequest };

/// The file in the home that the settings of some window managers leave there, which are scripts that run for
/// a while after the manager has begun to manage.
inline constexpr const char* managerReady = "manager-ready";

/// What the tests need to know about a window manager: a row of the table.
struct ManagerTraits {
  Manager manager;
  /// The name in tests and logs.
  const char* name;
  const char* program;
  /// The argument that keeps it from connecting to a session manager, or from showing what no test wants to
  /// see; null if there is none.
  const char* argument;
  /// Whether it composites by default, and whether it can.
  bool compositesByDefault;
  bool canComposite;
  /// The modifier held to move a window by any part of it.
  const char* moveModifier;
  /// Whether windows have title bars; those without are moved with the modifier.
  bool hasTitleBars;
  Placing placing;
  /// Whether it is ready only once the file `managerReady` is there.
  bool runsScript;
  /// Writes its settings into the home, before it starts.
  void (*configure)(const PrivateHome& home, const ManagerSetup& setup);
};

const ManagerTraits& traits(Manager manager);
/// The window manager with this name; nothing if there is none.
std::optional<Manager> managerNamed(std::string_view name);
/// All names, separated by bars, for usage lines.
std::string managerNames();

/// The text with all of these blanks replaced by the value.
std::string filledIn(std::string text, const std::string& blank, const std::string& value);

/// Each writes the settings files of one window manager into the home, as ManagerSetup describes.
void configureOpenbox(const PrivateHome& home, const ManagerSetup& setup);
void configureXfwm4(const PrivateHome& home, const ManagerSetup& setup);
void configureMetacity(const PrivateHome& home, const ManagerSetup& setup);
void configureKwin(const PrivateHome& home, const ManagerSetup& setup);
void configureIcewm(const PrivateHome& home, const ManagerSetup& setup);
void configureFluxbox(const PrivateHome& home, const ManagerSetup& setup);
void configureJwm(const PrivateHome& home, const ManagerSetup& setup);
void configureMarco(const PrivateHome& home, const ManagerSetup& setup);
void configureI3(const PrivateHome& home, const ManagerSetup& setup);
void configureHerbstluftwm(const PrivateHome& home, const ManagerSetup& setup);
void configureWindowMaker(const PrivateHome& home, const ManagerSetup& setup);
void configureAwesome(const PrivateHome& home, const ManagerSetup& setup);
void configureBspwm(const PrivateHome& home, const ManagerSetup& setup);

}  // namespace tilwin::desktop
