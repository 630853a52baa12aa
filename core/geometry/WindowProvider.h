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
  /// move requested; where it ends up is decided by the window and the desktop. A window that cannot be that
  /// small stands where `TilePlace` has it. Refuses a frame that is not placeable, so that a wrong number in
  /// a file cannot move a window out of reach.
  bool setFrame(std::int64_t id, const Rect& frame) { return frame.isPlaceable() && applyFrame(id, frame); }
  /// Moves a window back to a frame that it had before `setFrame`, or near it. If it was maximised or full
  /// screen exactly there, it is so again, and beneath that has the frame it had beneath. What is known of
  /// such states before this call is forgotten. Returns and refuses as `setFrame` does.
  bool restoreFrame(std::int64_t id, const Rect& frame) {
    return frame.isPlaceable() && applyRestore(id, frame);
  }

protected:
  /// Implements `setFrame` for one desktop. `frame` is placeable.
  virtual bool applyFrame(std::int64_t id, const Rect& frame) = 0;
  /// Implements `restoreFrame`. By default like `setFrame`, for desktops where a maximised window has a frame
  /// like any other.
  virtual bool applyRestore(std::int64_t id, const Rect& frame) { return applyFrame(id, frame); }
};

}  // namespace tilwin
