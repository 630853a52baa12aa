#pragma once

#include <xcb/xcb.h>

#include <optional>
#include <span>
#include <unordered_map>

#include "core/geometry/Rect.h"
#include "platform/x11/windows/OpenWindows.h"
#include "platform/x11/windows/WindowReader.h"

namespace tilwin::x11 {

/// A window's states that were ended to move it.
struct EndedState {
  FrameStates states{};
  Rect frame{};                  ///< the one it had in these states
  std::optional<Rect> normal{};  ///< the one it had without them, if that was seen

  bool operator==(const EndedState&) const = default;
  /// Whether they were a tile of the window manager's: metacity's count as maximised vertically, but stand
  /// elsewhere than the window beneath, which may not have been seen. Such a state asked for again would be
  /// no tile. `shape` is the window's without the states.
  [[nodiscard]] bool isTile(const FrameShape& shape) const;
};

/// Remembers which states were ended to move windows, so that a window can get them back with its old frame.
/// Frames are in points.
class EndedStates {
public:
  /// Of several for the same window, the first one counts, as it is the one to which the window is restored.
  void ended(xcb_window_t window, const EndedState& state) { states_.try_emplace(window, state); }
  /// The client area that the window had right after its states had been ended; later ones are not noted.
  void wentTo(xcb_window_t window, const Rect& normal);
  /// What is to come back with this frame; nothing if the window had it in no such state. Forgets the window.
  [[nodiscard]] std::optional<EndedState> take(xcb_window_t window, const Rect& frame);
  void forget(xcb_window_t window) { states_.erase(window); }
  /// Forgets all other windows: the server may give their numbers to new ones.
  void keepOnly(std::span<const xcb_window_t> open) { keepOpen(states_, open); }

private:
  std::unordered_map<xcb_window_t, EndedState> states_;
};

}  // namespace tilwin::x11
