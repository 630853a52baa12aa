#include "bench/drag/SimulatedUser.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tilwin {
namespace {

constexpr double mouseStep = 0.008;           ///< seconds between the samples of a mouse, at 125 Hz
constexpr double sampleStep = 4 * mouseStep;  ///< the first of them more than the 0.03 s that thin them out
constexpr double holdStep = 0.031;            ///< seconds after the last sample in which no other is taken
constexpr Spread tremor{0, 0.3};              ///< points by which a hand misses its path
constexpr double slipTime = 0.05;             ///< seconds before the release in which a hand slips
constexpr double slowestPace = 100;           ///< points per second

/// Pixels begin at an edge and end one short of the opposite one.
struct Edge {
  SnapAction zone;
  DragTrace::Sample (*place)(double t, double away, double along);
};
constexpr Edge left{SnapAction::leftHalf, [](double t, double away, double along) {
                      return DragTrace::Sample{t, away, along};
                    }};
constexpr Edge top{SnapAction::maximize, [](double t, double away, double along) {
                     return DragTrace::Sample{t, along, away};
                   }};
constexpr Edge right{
    SnapAction::rightHalf, [](double t, double away, double along) {
      return DragTrace::Sample{t, SimulatedDrag::display.maxX() - std::max(away, 1.0), along};
    }};

/// How far a hand has come, 0 to 1, in a movement from rest to rest without jerks (Flash and Hogan 1985).
double progress(double time) { return time * time * time * (10 - time * (15 - 6 * time)); }
constexpr double peakOfProgress = 1.875;

/// A movement towards an edge, of which the last part may be missing.
struct Movement {
  Movement(const DragHabit& habit, const SimulatedUser& user, Chance& chance)
      : from(chance.between(150, 400)),
        alongFrom(chance.between(350, 550)),
        alongBy(chance.between(-80, 80)) {
    const double aim = chance.about(habit.distance);
    const bool moving = chance.happens(habit.inMotion);
    const double part = moving ? chance.between(0.6, 0.9) : 1;
    by = (from - aim) / progress(part);
    whole = peakOfProgress * by / std::max(chance.about(habit.pace), slowestPace);
    released = whole * part + (moving ? 0 : std::max(chance.about(habit.rest), 0.0));
    slip = chance.happens(user.slips) ? chance.about({0, user.slip}) : 0;
  }

  double from;       ///< points from the edge
  double alongFrom;  ///< points along the edge
  double alongBy;
  double by = 0;        ///< points towards the edge, were the movement not cut short
  double whole = 0;     ///< seconds it would take
  double released = 0;  ///< seconds
  double slip = 0;      ///< points away from the edge
};

/// One edge holds the pointer; across the other it comes out on the next display, as far from the same edge.
double onDisplay(double away, bool atNeighbour) {
  return std::round(atNeighbour ? std::abs(away) : std::max(away, 0.0));
}

/// The pointer as it is read at a moment.
struct Reading {
  double away = 0;  ///< points from the edge
  DragTrace::Sample sample;
};

/// Ends the drag, as `PacedDrag` does: where nothing was told of the pointer yet, it is examined once more
/// before the release is told.
void letGo(SimulatedDrag& drag, const Reading& last, Reading release, SnapsBy by) {
  drag.decisive = by == SnapsBy::release ? release.away : last.away;
  const bool isKnown = release.sample.x == last.sample.x && release.sample.y == last.sample.y;
  if (by == SnapsBy::release && !isKnown) {
    release.sample.t = std::max(release.sample.t, last.sample.t + holdStep);
    drag.trace.append(release.sample);
  }
  drag.trace.append(release.sample);
}

const DragHabit& pick(const SimulatedUser& user, Chance& chance) {
  double rest = chance.share();
  for (const DragHabit& habit : user.habits) {
    rest -= habit.share;
    if (rest < 0) return habit;
  }
  return user.habits.back();
}

}  // namespace

SimulatedDrag SimulatedDrag::make(const SimulatedUser& user, Chance& chance, SnapsBy by) {
  const DragHabit& habit = pick(user, chance);
  const bool atNeighbour = chance.happens(habit.atNeighbour);
  const Edge& edge = atNeighbour ? right : (chance.happens(0.5) ? left : top);
  const Movement movement(habit, user, chance);
  SimulatedDrag drag{.trace = {}, .zone = edge.zone, .wantsSnap = habit.wantsSnap};
  const auto readAt = [&](double t) {
    const double done = progress(std::min(t / movement.whole, 1.0));
    const double slipped = std::max(1 - (movement.released - t) / slipTime, 0.0);
    const double path = movement.from - movement.by * done + movement.slip * slipped;
    const double away = onDisplay(path + chance.about(tremor), atNeighbour);
    return Reading{away, edge.place(t, away, std::round(movement.alongFrom + movement.alongBy * done))};
  };
  Reading last;
  for (double t = 0; t < movement.released; t += sampleStep) {
    last = readAt(t);
    drag.trace.append(last.sample);
  }
  letGo(drag, last, readAt(movement.released), by);
  return drag;
}

}  // namespace tilwin
