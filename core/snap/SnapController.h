#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "core/geometry/WindowProvider.h"
#include "core/layouts/Layout.h"
#include "core/layouts/LayoutPlanner.h"
#include "core/settings/CustomArea.h"
#include "core/snap/actions/SnapAction.h"

namespace tilwin {

/// Carries out snap actions on windows and remembers where each stood before it was first moved. Nothing
/// here throws or reports text: what cannot be done returns false and leaves the window where it was.
class SnapController {
public:
  using EventHandler = std::function<void(std::int64_t windowID, SnapAction action)>;

  /// The provider is held weakly; once it is gone every operation fails quietly.
  explicit SnapController(std::weak_ptr<WindowProvider> provider);

  double outer = 0;         ///< margin between tiles and the visible frame's edges, in points
  double gap = 0;           ///< space between neighbouring tiles, in points
  bool cycleWidths = true;  ///< whether repeating a half or third command cycles the width
  std::unordered_set<std::string> ignoredBundleIDs;  ///< applications whose windows are never moved
  EventHandler onEvent;                              ///< told after each successful move by an action

  /// Acts on the focused window. True when the window ended where the action wants it.
  bool perform(SnapAction action);
  /// Puts a given window on a given display; `currentFrame` is where it stood before the user dragged it.
  bool snap(std::int64_t windowID, SnapAction to, const DisplayInfo& on, const Rect& currentFrame);
  /// Puts the focused window into an area of its display. Not reported to `onEvent`.
  bool snap(const CustomArea& to);
  /// A new area where the focused window stands; the window is neither moved nor remembered.
  [[nodiscard]] std::optional<CustomArea> captureFocusedWindow(std::string named) const;

  /// Places the windows of a saved layout, as far as they are open. A window that does not move stops no
  /// other. The slots that found no window are in the plan returned.
  LayoutPlan apply(const Layout& layout);

  /// Keeps the window's frame for `restore`, unless one is kept already.
  void remember(const WindowInfo& window);
  void forget(std::int64_t windowID);
  [[nodiscard]] std::optional<Rect> originalFrame(std::int64_t windowID) const;

  /// The display that covers most of the rectangle; the primary one when none touches it. Points into
  /// `displays`; null only for an empty list.
  [[nodiscard]] static const DisplayInfo* display(const Rect& containing,
                                                  const std::vector<DisplayInfo>& displays);
  /// The next width of the cycle that `action` belongs to, when the window already stands at one of them.
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

  std::weak_ptr<WindowProvider> provider_;
  std::unordered_map<std::int64_t, Rect> previous_;
};

}  // namespace tilwin
