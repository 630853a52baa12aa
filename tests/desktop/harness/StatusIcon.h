#pragma once

#include <optional>
#include <vector>

#include "core/geometry/Rect.h"
#include "tests/desktop/harness/Session.h"

namespace tilwin::desktop {

/// A way through a menu and its submenus: the row in each, 1 for the first; counted from the bottom if
/// negative, -1 for the last. Separators do not count.
using MenuPath = std::vector<int>;

/// Rows of the program's menu that are always there.
namespace row {
inline constexpr int halves = 1;
inline constexpr int quarters = 2;
inline constexpr int layouts = 7;
inline constexpr int customAreas = 8;
inline constexpr int settings = -2;  ///< without an updater, as in builds without a feed
inline constexpr int quit = -1;
}  // namespace row

/// The program's icon in a panel and the menu behind it, for a person with a mouse and a keyboard. The icon
/// is recognised by its colour, which nothing else on the screen may have.
class StatusIcon {
public:
  explicit StatusIcon(Session& session) : session_(session) {}

  /// Where it is on the screen; nothing if it is not shown.
  [[nodiscard]] std::optional<Rect> area();
  /// These wait and return whether it came about.
  [[nodiscard]] bool appears(Milliseconds timeout = startTimeout);
  [[nodiscard]] bool disappears(Milliseconds timeout = answerTimeout);

  /// Clicks on the icon. This and the following throw HarnessError if the screen does not follow.
  void open(int button = 1);
  /// Goes along the path with the arrow keys, from an open menu without a highlighted row. The last row is
  /// highlighted then; the submenus before it are open.
  void walk(const MenuPath& path);
  /// Opens the menu, goes there and chooses it with the Return key.
  void choose(const MenuPath& path);
  void close();

  /// The open menus of all programs, from the first to the last submenu.
  [[nodiscard]] std::vector<Rect> menus();

private:
  void press(const char* key, int times);
  void waitForMenus(std::size_t count);

  Session& session_;
};

}  // namespace tilwin::desktop
