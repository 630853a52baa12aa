#pragma once

#include <unordered_map>
#include <unordered_set>

#include "platform/ports/DesktopWindows.h"
#include "platform/simulated/SimulatedWindows.h"

namespace tilwin {

/// The windows of the simulated desktop as the program under test sees them. A window that could not take the
/// exact size of a request is reported with the requested frame, as long as it stays where the request put
/// it. A maximised window that was moved is maximised again by `restoreFrame`. Frames are in points.
class SimulatedWindowProvider final : public DesktopWindows {
public:
  /// The windows must outlive this.
  explicit SimulatedWindowProvider(SimulatedWindows& windows);

  std::vector<DisplayInfo> displays() override;
  std::optional<WindowInfo> focusedWindow() override;
  std::vector<WindowInfo> allWindows() override;
  std::optional<Rect> frame(std::int64_t of) override;
  std::optional<WindowInfo> lastFocusedWindow() override;
  std::optional<WindowInfo> window(Point at) override;

private:
  bool applyFrame(std::int64_t id, const Rect& frame) override;
  bool applyRestore(std::int64_t id, const Rect& frame) override;
  struct Answer {
    Rect reported;
    Rect standing;
  };
  /// A maximised window that was released to be moved.
  struct Released {
    Rect maximized;
    Rect normal;
  };

  [[nodiscard]] std::vector<SimulatedWindows::Handle> listed() const;
  void release(SimulatedWindows::Handle handle);
  WindowInfo described(SimulatedWindows::Handle handle, std::int64_t zOrder);
  Rect reportedFrame(SimulatedWindows::Handle handle, const Rect& standing);

  SimulatedWindows& windows_;
  std::unordered_set<std::int64_t> handedOut_;
  std::unordered_map<std::int64_t, Answer> answers_;
  std::unordered_map<std::int64_t, Released> released_;
};

}  // namespace tilwin
