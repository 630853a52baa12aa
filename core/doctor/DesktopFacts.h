#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/geometry/Rect.h"

namespace tilwin {

struct NamedFact {
  std::string name{};
  std::string value{};

  bool operator==(const NamedFact&) const = default;
};

/// A window manager as it was found: what it says of itself, and what it was seen to do.
struct ManagerFacts {
  /// Whether moving a window by `message` works.
  enum class Obeys : std::uint8_t { notTried, yes, no };
  struct Feature {
    std::string name{};
    bool isListed = false;

    bool operator==(const Feature&) const = default;
  };

  bool runs = false;   ///< announces itself, as the desktop's rules require
  std::string name{};  ///< as it calls itself
  std::vector<Feature> features{};
  std::string message{};  ///< the one by which windows are moved
  Obeys obeys = Obeys::notTried;
  std::string way{};           ///< how windows are moved now, in words
  bool placesClient = false;   ///< puts the client area where the frame was asked to be
  bool tilesItself = false;    ///< had to be made to give up a tile of its own
  bool refusesWindow = false;  ///< does not let some window be moved

  bool operator==(const ManagerFacts&) const = default;
};

/// Widths around a window, in points.
struct Sides {
  double left = 0;
  double right = 0;
  double top = 0;
  double bottom = 0;

  bool operator==(const Sides&) const = default;
};

struct WindowFacts {
  std::string kind{};  ///< "normal", "dialog"
  bool isOwn = false;
  Rect frame{};
  Sides decoration{};             ///< by the window manager, around the client area
  std::optional<Sides> shadow{};  ///< of a window that draws its own frame, inside the client area
  Size least{};                   ///< of the client area, as the client says
  std::optional<Size> most{};
  std::optional<Size> step{};  ///< in which it grows
  bool keepsProportions = false;
  std::vector<std::string> states{};  ///< "maximised", "full screen"
  std::string application{};
  std::string title{};

  bool operator==(const WindowFacts&) const = default;
};

/// When a window was asked to move, and when its manager answered. On the clock of `MainQueue::uptime`.
struct MoveTimes {
  using Seconds = std::chrono::duration<double>;

  Seconds asked{};
  std::optional<Seconds> answered{};

  bool operator==(const MoveTimes&) const = default;
};

/// What a desktop tells of itself beyond what the program needs to work.
struct DesktopFacts {
  std::vector<NamedFact> versions{};
  std::optional<ManagerFacts> manager{};  ///< nothing where windows are managed by the system itself
  std::vector<WindowFacts> windows{};     ///< all that are open, the topmost first
  std::vector<MoveTimes> moves{};         ///< the last ones
  std::optional<double> scale{};          ///< of texts; 1 if a point is 1/96 of an inch

  bool operator==(const DesktopFacts&) const = default;
};

}  // namespace tilwin
