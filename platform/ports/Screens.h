#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace tilwin {

/// A rectangle as macOS places screens: points, origin at the bottom-left corner of the first screen, x to
/// the right and y upward, so that `y` is the bottom edge.
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
  std::optional<std::uint32_t> number{};  ///< "NSScreenNumber"; nothing when missing or not a number

  bool operator==(const Screen&) const = default;
};

/// Knows which screens are connected.
class Screens {
public:
  Screens() = default;
  Screens(const Screens&) = delete;
  Screens& operator=(const Screens&) = delete;
  virtual ~Screens() = default;

  /// The first one is the primary.
  [[nodiscard]] virtual std::vector<Screen> screens() = 0;
};

}  // namespace tilwin
