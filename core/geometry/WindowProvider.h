#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "core/geometry/DisplayInfo.h"
#include "core/geometry/WindowInfo.h"

namespace tilwin {

/// Reads and moves the windows of other applications. Whoever needs one holds it weakly; the composition
/// root owns it. Nothing here throws: what cannot be read is left out, what cannot be moved is reported.
class WindowProvider {
public:
  WindowProvider() = default;
  WindowProvider(const WindowProvider&) = delete;
  WindowProvider& operator=(const WindowProvider&) = delete;
  virtual ~WindowProvider() = default;

  /// All connected displays in the desktop's order, the primary one first.
  [[nodiscard]] virtual std::vector<DisplayInfo> displays() = 0;
  /// The window with keyboard focus in the frontmost application.
  [[nodiscard]] virtual std::optional<WindowInfo> focusedWindow() = 0;
  /// The windows that layouts may act on.
  [[nodiscard]] virtual std::vector<WindowInfo> allWindows() = 0;
  /// Moves and resizes a window that this provider issued the id of. True when the window was found and the
  /// move was issued; where it then ends is the window's own affair. A frame that is not placeable is
  /// refused, so that no window is lost by a slip in a file.
  bool setFrame(std::int64_t id, const Rect& frame) { return frame.isPlaceable() && applyFrame(id, frame); }

protected:
  /// What `setFrame` does for each desktop; the frame is placeable.
  virtual bool applyFrame(std::int64_t id, const Rect& frame) = 0;
};

}  // namespace tilwin
