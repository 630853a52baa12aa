#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "core/geometry/DisplayInfo.h"
#include "core/geometry/WindowInfo.h"

namespace tilwin {

/// Reads and moves the windows of other applications. Owned by the composition root; users hold it weakly.
/// Nothing here throws: windows that cannot be read are omitted, a failed move returns false.
class WindowProvider {
public:
  WindowProvider() = default;
  WindowProvider(const WindowProvider&) = delete;
  WindowProvider& operator=(const WindowProvider&) = delete;
  virtual ~WindowProvider() = default;

  /// All connected displays in the desktop's order, primary display first.
  [[nodiscard]] virtual std::vector<DisplayInfo> displays() = 0;
  /// The window with the keyboard focus; nothing if there is none or it cannot be read.
  [[nodiscard]] virtual std::optional<WindowInfo> focusedWindow() = 0;
  /// All windows that layouts may move.
  [[nodiscard]] virtual std::vector<WindowInfo> allWindows() = 0;
  /// Moves and resizes a window; `id` is from this provider. Returns true if the window was found and the
  /// move requested; where it ends up is decided by the window and the desktop. Refuses a frame that is not
  /// placeable, so that a wrong number in a file cannot move a window out of reach.
  bool setFrame(std::int64_t id, const Rect& frame) { return frame.isPlaceable() && applyFrame(id, frame); }

protected:
  /// Implements `setFrame` for one desktop. `frame` is placeable.
  virtual bool applyFrame(std::int64_t id, const Rect& frame) = 0;
};

}  // namespace tilwin
