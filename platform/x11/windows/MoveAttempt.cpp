#include "platform/x11/windows/MoveAttempt.h"

namespace tilwin::x11 {

Point clientCorner(const FrameShape& shape) {
  return {shape.decoration.left - shape.clientBorder, shape.decoration.top - shape.clientBorder};
}

MoveWay ManagerHabits::firstWay() const {
  return takesMessage && !ignoresMessage ? MoveWay::message : MoveWay::configure;
}

std::optional<MoveWay> ManagerHabits::wayAfter(MoveWay refused, bool isStillMaximized) const {
  if (refused == MoveWay::message) return MoveWay::configure;
  // Managers without the message have no tiles beside the states of EWMH, and some of them never end those.
  if (refused == MoveWay::configure && takesMessage && maximizes) return MoveWay::untile;
  if (refused == MoveWay::untile && isStillMaximized && movesByHand) return MoveWay::pull;
  return std::nullopt;
}

MoveAttempt::Verdict MoveAttempt::judge(const Standing& now, const ManagerHabits& habits,
                                        Seconds time) const {
  if (now.frame == wanted) return Verdict::settled;
  if (!isDue(time)) return Verdict::open;
  if (!isCorrected && isMisplaced(now, habits)) return Verdict::misplaced;
  if (now.frame != before || isResized) return isDropped ? Verdict::moved : Verdict::settled;
  if (now.frame.isClose(wanted, rounding)) return Verdict::settled;
  const bool isAtPlace = now.frame.x == wanted.x && now.frame.y == wanted.y;
  if (isAtPlace && now.mayKeepSize) return Verdict::settled;
  return way != MoveWay::configure || answeredAt ? Verdict::refused : Verdict::unheard;
}

bool MoveAttempt::isDue(Seconds time) const {
  if (way != MoveWay::configure) return time - at >= patience;
  return answeredAt ? time - *answeredAt >= aftermath : time - at >= longest;
}

/// By its corner alone, as its size may have been rounded.
bool MoveAttempt::isMisplaced(const Standing& now, const ManagerHabits& habits) const {
  const Point off = clientCorner(now.shape);
  const double side = habits.placesClient ? 1 : -1;
  return (off.x != 0 || off.y != 0) && now.frame.x == wanted.x + side * off.x &&
         now.frame.y == wanted.y + side * off.y;
}

}  // namespace tilwin::x11
