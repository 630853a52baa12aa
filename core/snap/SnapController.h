#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "core/geometry/WindowProvider.h"
#include "core/layouts/Layout.h"
#include "core/layouts/LayoutPlanner.h"
#include "core/settings/CustomArea.h"
#include "core/snap/actions/SnapAction.h"

namespace tilwin {

/// Performs snap actions on windows and remembers the frame each window had before its first move. Nothing
/// here throws or shows messages: an operation that fails returns false.
class SnapController {
public:
  using EventHandler = std::function<void(std::int64_t windowID, SnapAction action)>;
  using AreaHandler = std::function<void(std::int64_t windowID, const CustomArea& area)>;

  /// Holds the provider weakly; after it is destroyed every operation fails silently.
  explicit SnapController(std::weak_ptr<WindowProvider> provider);

  double outer = 0;         ///< margin between tiles and the edges of the visible frame, in points
  double gap = 0;           ///< space between neighbouring tiles, in points
  bool cycleWidths = true;  ///< whether repeating a half or third cycles through the widths
  std::unordered_set<std::string> ignoredBundleIDs;  ///< applications whose windows are never moved
  EventHandler onEvent;                              ///< called after each `perform` or drag that succeeds
  AreaHandler onArea;                                ///< called after each move into an area that succeeds

  /// Acts on the focused window. Returns true if the window is already in place or the move was requested.
  bool perform(SnapAction action);
  /// Snaps a dragged window on the given display. `currentFrame` is its frame before the drag, which
  /// `restore` brings back.
  bool snap(std::int64_t windowID, SnapAction to, const DisplayInfo& on, const Rect& currentFrame);
  /// Moves the focused window into an area of its display. Calls `onArea`, not `onEvent`.
  bool snap(const CustomArea& to);
  /// Makes a new area from the frame of the focused window, without moving or remembering the window.
  [[nodiscard]] std::optional<CustomArea> captureFocusedWindow(std::string_view named) const;

  /// Moves the open windows that a saved layout names. If one cannot be moved, the others still are. The
  /// returned plan lists the slots for which no window was found.
  LayoutPlan apply(const Layout& layout);

  /// Stores the window's frame for `restore`, unless one is already stored.
  void remember(const WindowInfo& window);
  void forget(std::int64_t windowID);
  [[nodiscard]] std::optional<Rect> originalFrame(std::int64_t windowID) const;

  /// See `DisplayInfo::covering`.
  [[nodiscard]] static const DisplayInfo* display(const Rect& containing,
                                                  const std::vector<DisplayInfo>& displays);
  /// The next action of the width cycle that `action` belongs to, if the window already has one of its
  /// frames; else nothing.
  [[nodiscard]] static std::optional<SnapAction> cycled(SnapAction action, const Rect& current,
                                                        const Rect& area, double outer, double gap);

private:
  struct Scene;
  struct FocusedPlace;

  bool act(SnapAction action, WindowProvider& provider, const WindowInfo& window);
  bool moveToNeighbour(SnapAction action, const Scene& scene);
  bool restore(const Scene& scene);
  bool place(SnapAction action, const Scene& scene);
  bool moveUnlessThere(WindowProvider& provider, const WindowInfo& window, const Rect& target);
  [[nodiscard]] std::optional<FocusedPlace> focusedPlace() const;
  void report(std::int64_t windowID, SnapAction action) const;

  std::weak_ptr<WindowProvider> provider_;
  std::unordered_map<std::int64_t, Rect> previous_;
};

}  // namespace tilwin
