#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/geometry/NormalizedRect.h"
#include "core/geometry/Rect.h"
#include "tests/desktop/soak/Rules.h"

namespace tilwin::desktop::soak {

enum class State { normal, maximized, fullScreen };

/// Where a window stands, and whether its manager has put it there.
struct Standing {
  Rect frame;
  State state = State::normal;

  bool operator==(const Standing&) const = default;
};

struct Display {
  std::string output;
  Rect frame;
  bool isPrimary = false;
  double panel = 0;  ///< height of the panel along its top

  bool operator==(const Display&) const = default;
  [[nodiscard]] Rect area() const { return {frame.x, frame.y + panel, frame.width, frame.height - panel}; }
};

/// What `restore` would bring a window back to.
struct Memory {
  std::vector<Standing> possible;  ///< one of these
  bool mayBeEmpty = true;          ///< or nothing
  bool isUnknown = false;          ///< or anything at all

  bool operator==(const Memory&) const = default;
  /// As the program does before a move: what is remembered already stays.
  void remember(const Standing& standing);
};

/// Where a window has to come to stand.
struct Expected {
  /// One of these; wherever its manager puts it if there are none.
  std::vector<Rect> frames;
  std::optional<State> state;

  bool operator==(const Expected&) const = default;
  [[nodiscard]] bool allows(const Standing& seen) const;
  [[nodiscard]] bool isCertain() const { return frames.size() == 1 && state; }
};

struct ModelWindow {
  std::string name;
  bool hasTitleBar = true;
  Standing now;
  Expected next;
  Memory memory;

  /// No manager holds it in a state of its own.
  [[nodiscard]] bool isNormal() const { return now.state == State::normal; }
};

/// What each window of a desktop should be after each act. Knows neither the program nor the desktop.
class Model {
public:
  std::vector<Display> displays;
  Spacing spacing;
  std::vector<ModelWindow> windows;

  /// A shortcut was pressed while the window had the focus.
  void pressed(ModelWindow& window, std::string_view action) const;
  /// The same, but by then another window may have had the focus.
  void perhapsPressed(ModelWindow& window, std::string_view action) const;
  /// The window was dragged into the zone of this action and let go.
  void snapped(ModelWindow& window, std::string_view action, const Display& on) const;
  /// The same, unless the program was kept from seeing it.
  static void perhapsSnapped(ModelWindow& window);
  /// Somebody else asked for this frame.
  void placed(ModelWindow& window, const Rect& frame) const;
  /// Its manager decides on its frame, and on its state if none is given.
  static void leftToManager(ModelWindow& window, std::optional<State> state = {});
  /// It was put to a share of the free area of a display, with all others of its layout.
  void laidOut(ModelWindow& window, const NormalizedRect& share, const Display& on) const;
  /// The window has been seen where it is.
  static void seen(ModelWindow& window, const Standing& standing);

  void managerChanged();
  void displaysChanged(std::vector<Display> to);
  void programRestarted();

  [[nodiscard]] const Display& displayOf(const Rect& frame) const;
  /// By the x of their frames, then by their y.
  [[nodiscard]] std::vector<Display> inOrder() const;
  /// Whether the frame lies within the free area of one display; then no manager minds it.
  [[nodiscard]] bool isInside(const Rect& frame) const;
  /// Whether a hand can take hold of it. Some managers keep a window that fills the screen above the others.
  [[nodiscard]] bool isWithinReach(const ModelWindow& window) const;
  /// The text that names this set of displays in the file of layouts.
  [[nodiscard]] std::string signature() const;

private:
  void move(ModelWindow& window, const Rect& to) const;
  void restore(ModelWindow& window) const;
  void moveToNeighbour(ModelWindow& window, bool isNext) const;
  [[nodiscard]] bool isInReach(const Rect& frame) const;
};

}  // namespace tilwin::desktop::soak
