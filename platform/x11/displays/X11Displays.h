#pragma once

#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "core/geometry/DisplayInfo.h"
#include "platform/ports/MainQueue.h"
#include "platform/ports/ScreenChanges.h"
#include "platform/x11/displays/Strut.h"
#include "platform/x11/wire/DeferredWork.h"
#include "platform/x11/wire/X11Connection.h"

namespace tilwin::x11 {

/// The monitors and their visible frames, which exclude panels. Cached and refreshed on events, so that a key
/// press normally needs no round trip for them. If the server does not answer, the last known displays stay.
/// Frames are in points; a point is one pixel. Sources: RandR 1.5, monitors; EWMH, _NET_WM_STRUT_PARTIAL.
class X11Displays : public ScreenChanges {
public:
  /// The connection and the queue must outlive this.
  X11Displays(X11Connection& x, MainQueue& queue);

  /// The primary monitor first, the others in the server's order. If no monitor is primary, the first one
  /// counts as primary.
  [[nodiscard]] const std::vector<DisplayInfo>& current();
  void onChange(std::function<void()> handler) override { changed_ = std::move(handler); }

private:
  void propertyChanged(const xcb_property_notify_event_t& event);
  void refresh();
  /// Returns nothing if the server does not answer.
  [[nodiscard]] std::optional<std::vector<DisplayInfo>> read();
  [[nodiscard]] std::vector<Strut> readStruts(const Rect& desktop);

  X11Connection& x_;
  MainQueue& queue_;
  std::function<void()> changed_;
  std::vector<xcb_window_t> panels_;  ///< windows with struts, whose properties are watched
  std::vector<DisplayInfo> displays_;
  DeferredWork reading_;
};

}  // namespace tilwin::x11
