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
  [[nodiscard]] bool isThisProgram(const RunningApplication& application);
  [[nodiscard]] std::vector<RunningApplication> listedApplications();
  void appendWindows(const RunningApplication& of, std::vector<WindowInfo>& to);
  std::optional<WindowInfo> described(const AccessibilityElementRef& window, const RunningApplication& owner,
                                      std::int64_t zOrder);
  [[nodiscard]] AccessibilityElementRef windowAround(AccessibilityElementRef element);

  Accessibility& accessibility_;
  Workspace& workspace_;
  Screens& screens_;
  std::unordered_map<std::int64_t, AccessibilityElementRef> elements_;
};

}  // namespace tilwin
