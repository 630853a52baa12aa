#include "bench/desktop/Halves.h"

#include <algorithm>

#include "tests/desktop/harness/HarnessError.h"

namespace tilwin::bench {

namespace {

using desktop::Clock;

/// Longer than any manager takes between the parts of one answer.
constexpr desktop::Milliseconds betweenParts{30};

/// A manager tells a client that has only been moved of its place in root coordinates (ICCCM, 4.1.5).
double untilTold(const desktop::TestWindow& window, Clock::time_point begun) {
  const auto told = window.recorded().configures;
  const auto last = std::find_if(told.rbegin(), told.rend(), [](const auto& each) { return each.synthetic; });
  if (last == told.rend()) throw desktop::HarnessError("the client is not told of its new position");
  const auto first = std::ranges::find_if(told, [&](const auto& each) {
    return each.synthetic && each.position == last->position && each.size == last->size;
  });
  return std::chrono::duration<double, std::milli>(first->at - begun).count();
}

void requireFrame(desktop::Session& session, const desktop::TestWindow& window, const Rect& wanted,
                  const std::string& name) {
  if (session.desktop().waitForFrame(window.id(), wanted)) return;
  throw desktop::HarnessError(name + " does not bring the window to " + std::to_string(wanted.x) + "," +
                              std::to_string(wanted.y));
}

HalvesMover halvesByRequest(desktop::Session& session, const desktop::TestWindow& window) {
  auto& desktop = session.desktop();
  const auto to = [&desktop, &window](const Rect& frame) {
    return [&desktop, request = desktop.placeRequest(window.id(), frame)] {
      const auto begun = Clock::now();
      desktop.send(request);
      return begun;
    };
  };
  return {"floor (one request)", to(rightHalf), to(leftHalf),
          [&desktop, &window] { desktop.place(window.id(), leftHalf); },
          [&desktop, &window] { desktop.place(window.id(), apart); }};
}

HalvesMover halvesByKeys(desktop::Session& session, const desktop::TestWindow& window,
                         const std::string& name, const char* right, const char* left) {
  auto& input = session.input();
  HalvesMover mover = halvesByRequest(session, window);
  mover.name = name;
  mover.toRight = [&input, right] { return input.press(right); };
  mover.toLeft = [&input, left] { return input.press(left); };
  return mover;
}

/// A manager that remembers which windows it has tiled refuses to place them otherwise; the same key again
/// ends that.
HalvesMover ownKeys(desktop::Session& session, const desktop::TestWindow& window) {
  const auto& manager = session.manager().traits();
  HalvesMover mover = halvesByKeys(session, window, std::string(manager.name) + "'s own keys",
                                   desktop::nativeTileRight, desktop::nativeTileLeft);
  if (manager.manager == desktop::Manager::openbox) return mover;
  mover.begin = [&session] { session.input().press(desktop::nativeTileLeft); };
  mover.end = mover.begin;
  return mover;
}

}  // namespace

std::vector<HalvesMover> halvesMoversFor(desktop::Session& session, const desktop::TestWindow& window) {
  return {halvesByRequest(session, window),
          halvesByKeys(session, window, "Tilwin", "Control+Alt+Right", "Control+Alt+Left"),
          ownKeys(session, window)};
}

void measure(const HalvesMover& mover, desktop::Session& session, desktop::TestWindow& window, int moves,
             Latencies& into) {
  session.desktop().place(window.id(), apart);
  requireFrame(session, window, apart, mover.name);
  session.desktop().settle();
  mover.begin();
  requireFrame(session, window, leftHalf, mover.name);
  for (int count = 0; count < moves; ++count) {
    window.settle(betweenParts);
    window.forget();
    const bool isToRight = count % 2 == 0;
    const auto begun = isToRight ? mover.toRight() : mover.toLeft();
    requireFrame(session, window, isToRight ? rightHalf : leftHalf, mover.name);
    window.settle(betweenParts);
    into.milliseconds.push_back(untilTold(window, begun));
  }
  if (moves % 2 != 0) mover.toLeft();
  requireFrame(session, window, leftHalf, mover.name);
  mover.end();
  requireFrame(session, window, apart, mover.name);
}

}  // namespace tilwin::bench
