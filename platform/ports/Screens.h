#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace tilwin {

/// A rectangle in the screen coordinates of macOS: points, with the origin at the bottom-left corner of the
/// first screen, x to the right and y upwards. `y` is therefore the bottom edge.
struct ScreenRect {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;

  bool operator==(const ScreenRect&) const = default;
};

struct Screen {
  ScreenRect frame{};
  ScreenRect visibleFrame{};              ///< without the menu bar and the dock
  std::optional<std::uint32_t> number{};  ///< "NSScreenNumber"; nothing if it is missing or not a number

  bool operator==(const Screen&) const = default;
};

/// Lists the connected screens. Source: NSScreen of macOS.
class Screens {
public:
  Screens() = default;
  Screens(const Screens&) = delete;
  Screens& operator=(const Screens&) = delete;
  virtual ~Screens() = default;

  /// The primary screen first.
  [[nodiscard]] virtual std::vector<Screen> screens() = 0;
};

}  // namespace tilwin
