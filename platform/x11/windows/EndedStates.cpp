#include "platform/x11/windows/EndedStates.h"

namespace tilwin::x11 {

bool EndedState::isTile(const FrameShape& shape) const {
  if (states.fullScreen || states.maximizedHorz == states.maximizedVert) return false;
  if (!normal) return true;
  const Rect beneath = shape.frameOfClient(*normal);
  return states.maximizedVert ? beneath.x != frame.x || beneath.width != frame.width
                              : beneath.y != frame.y || beneath.height != frame.height;
}

void EndedStates::wentTo(xcb_window_t window, const Rect& normal) {
  const auto found = states_.find(window);
  if (found != states_.end() && !found->second.normal) found->second.normal = normal;
}

std::optional<EndedState> EndedStates::take(xcb_window_t window, const Rect& frame) {
  const auto entry = states_.extract(window);
  if (entry.empty() || entry.mapped().frame != frame) return std::nullopt;
  return entry.mapped();
}

}  // namespace tilwin::x11
