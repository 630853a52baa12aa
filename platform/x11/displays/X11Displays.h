#pragma once

#include <functional>
#include <optional>
#include <set>
#include <span>
#include <unordered_set>
#include <utility>
#include <vector>

#include "core/geometry/DisplayInfo.h"
#include "platform/ports/MainQueue.h"
#include "platform/ports/ScreenChanges.h"
#include "platform/x11/displays/Strut.h"
#include "platform/x11/displays/WorkArea.h"
#include "platform/x11/wire/DeferredWork.h"
#include "platform/x11/wire/Reply.h"
#include "platform/x11/wire/X11Connection.h"

namespace tilwin::x11 {

struct UnlistedWindows;

/// The monitors and their visible frames, which exclude panels. Cached and refreshed on events, so that a key
/// press normally needs no round trip for them. If the server does not answer, the last known displays stay.
/// Frames are in points; a point is one pixel. Sources: RandR 1.5, monitors; EWMH, _NET_WM_STRUT_PARTIAL and
/// _NET_WORKAREA.
class X11Displays : public ScreenChanges {
public:
  /// The connection and the queue must outlive this.
  X11Displays(X11Connection& x, MainQueue& queue);

  /// The primary monitor first, the others in the server's order. If no monitor is primary, the first one
  /// counts as primary.
  [[nodiscard]] const std::vector<DisplayInfo>& current();
  /// Asks for what `current` needs to notice a panel that no event tells of: one that the window manager does
  /// not list. Takes no round trip of its own if others follow before `current`.
  void askAhead();
  void onChange(std::function<void()> handler) override { changed_ = std::move(handler); }

private:
  void listenToPanels();
  void propertyChanged(const xcb_property_notify_event_t& event);
  void refresh();
  /// Returns nothing if the server does not answer.
  [[nodiscard]] std::optional<std::vector<DisplayInfo>> read();
  struct StrutQuestions;
  [[nodiscard]] std::vector<StrutQuestions> askForStruts(std::span<const xcb_window_t> listed,
                                                         const UnlistedWindows& unlisted) const;
  [[nodiscard]] std::vector<Strut> readStruts(std::vector<StrutQuestions> asked, const Rect& desktop,
                                              std::span<const Rect> monitors);
  [[nodiscard]] bool hasNewWindow();

  X11Connection& x_;
  MainQueue& queue_;
  std::function<void()> changed_;
  std::set<xcb_window_t> panels_;  ///< windows that were seen to have struts, and whose changes are watched
  std::unordered_set<xcb_window_t> onRoot_;                ///< the children of the root at the last reading
  std::optional<Pending<xcb_query_tree_reply>> children_;  ///< what was asked ahead
  WorkAreaRule workArea_;
  std::vector<DisplayInfo> displays_;
  DeferredWork reading_;
};

}  // namespace tilwin::x11
