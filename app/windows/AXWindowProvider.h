#pragma once

#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

#include "platform/ports/Accessibility.h"
#include "platform/ports/DesktopWindows.h"
#include "platform/ports/Screens.h"
#include "platform/ports/Workspace.h"

namespace tilwin {

/// Displays and windows through the accessibility interface, for desktops that have one. Omits this program's
/// own windows. Main thread only.
///
/// A window's id is the hash of its accessibility element. `allWindows` invalidates all earlier ids, so that
/// ids of closed windows do not pile up; the other queries only add ids.
///
/// A window that came out larger than it was asked to be is moved to where `TilePlace` has it. While it
/// stands there, `focusedWindow` and `allWindows` report the frame it was asked for.
class AXWindowProvider final : public DesktopWindows {
public:
  /// The ports must outlive the provider.
  AXWindowProvider(Accessibility& accessibility, Workspace& workspace, Screens& screens);

  [[nodiscard]] std::vector<DisplayInfo> displays() override;
  /// The focused window of the frontmost application, or its main window if none has the focus.
  [[nodiscard]] std::optional<WindowInfo> focusedWindow() override;
  /// The standard windows of all regular applications, including minimised ones: first those of the frontmost
  /// application, then the others in alphabetic order of the applications.
  [[nodiscard]] std::vector<WindowInfo> allWindows() override;
  [[nodiscard]] std::optional<Rect> frame(std::int64_t of) override;
  [[nodiscard]] std::optional<WindowInfo> window(Point at) override;

private:
  bool applyFrame(std::int64_t id, const Rect& frame) override;
  struct Known {
    AccessibilityElementRef element;
    Rect standing;  ///< when it was last described
  };
  /// The frame that a window has because it could not be as small as it was asked to, and the one to report.
  struct Refusal {
    Rect reported;
    Rect standing;
  };

  void placeIfLarger(std::int64_t id, const Known& window, const Rect& asked);
  [[nodiscard]] WindowInfo asAsked(WindowInfo window);
  [[nodiscard]] bool isThisProgram(const RunningApplication& application);
  [[nodiscard]] std::vector<RunningApplication> listedApplications();
  void appendWindows(const RunningApplication& of, std::vector<WindowInfo>& to);
  std::optional<WindowInfo> described(const AccessibilityElementRef& window, const RunningApplication& owner,
                                      std::int64_t zOrder);
  [[nodiscard]] AccessibilityElementRef windowAround(AccessibilityElementRef element);

  Accessibility& accessibility_;
  Workspace& workspace_;
  Screens& screens_;
  std::unordered_map<std::int64_t, Known> elements_;
  std::unordered_map<std::int64_t, Refusal> refusals_;
};

}  // namespace tilwin
