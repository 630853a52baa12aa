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

/// The monitors with what panels leave free of them, kept between events so that a key press reads none of
/// it. Sources: RandR 1.5, monitors; EWMH, _NET_WM_STRUT_PARTIAL.
class X11Displays : public ScreenChanges {
public:
  /// Connection and queue must outlive this.
  X11Displays(X11Connection& x, MainQueue& queue);

  /// The primary monitor first, then in the server's order; the first one stands in where none is primary.
  [[nodiscard]] const std::vector<DisplayInfo>& current();
  void onChange(std::function<void()> handler) override { changed_ = std::move(handler); }

private:
  void propertyChanged(const xcb_property_notify_event_t& event);
  void refresh();
  /// Nothing when the server does not say.
  [[nodiscard]] std::optional<std::vector<DisplayInfo>> read();
  [[nodiscard]] std::vector<Strut> readStruts(const Rect& desktop);

  X11Connection& x_;
  MainQueue& queue_;
  std::function<void()> changed_;
  std::vector<xcb_window_t> panels_;  ///< windows that keep room, whose properties are watched
  std::vector<DisplayInfo> displays_;
  DeferredWork reading_;
};

}  // namespace tilwin::x11
