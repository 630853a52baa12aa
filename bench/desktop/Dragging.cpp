#include "bench/desktop/Dragging.h"

#include <cmath>
#include <numbers>
#include <thread>

#include "tests/desktop/harness/HarnessError.h"
#include "tests/desktop/harness/ResourceUse.h"

namespace tilwin::bench {

namespace {

using desktop::Clock;
using desktop::Milliseconds;
using desktop::PixelPoint;

constexpr Milliseconds step{8};
/// Longer than Tilwin looks away after each look.
constexpr Milliseconds pause{60};
/// Longer than a thrown window takes to snap.
constexpr Milliseconds thrown{500};
constexpr PixelPoint nearTheEdge{60, 500};
constexpr PixelPoint inTheZone{2, 500};

void rest(Milliseconds time) { std::this_thread::sleep_for(time); }

void takeHold(desktop::Session& session, const desktop::TestWindow& window) {
  session.input().takeHold(session.desktop().titleBar(window.id()));
  rest(pause);
}

/// The next window that is mapped without its manager's doing.
Clock::time_point waitForPreview(desktop::XConnection& connection) {
  while (true) {
    const desktop::XcbPtr<xcb_generic_event_t> event(xcb_wait_for_event(connection.get()));
    if (!event) throw desktop::HarnessError("the X connection is lost");
    if ((event->response_type & 0x7F) != XCB_MAP_NOTIFY) continue;
    if (reinterpret_cast<const xcb_map_notify_event_t&>(*event).override_redirect != 0) return Clock::now();
  }
}

double processorTime(pid_t process) {
  const auto use = desktop::useOf(process);
  if (!use) throw desktop::HarnessError("a process has ended in the benchmark");
  return static_cast<double>(use->processorTime);
}

}  // namespace

Mover dragToTheLeft(desktop::Session& session, const desktop::TestWindow& window) {
  auto& input = session.input();
  const auto drag = [&] {
    takeHold(session, window);
    input.glide(nearTheEdge, 20, step);
    rest(pause);
    input.movePointer(inTheZone);
    rest(pause);
    const auto begun = Clock::now();
    input.buttonUp();
    return begun;
  };
  return {"Tilwin, window let go", drag, [&] { input.press("Control+Alt+BackSpace"); }};
}

Mover letGoAndRequest(desktop::Session& session, const desktop::TestWindow& window, const Mover& request) {
  auto& input = session.input();
  const auto drag = [&session, &window, &input, move = request.move] {
    takeHold(session, window);
    input.comeToRest(nearTheEdge);
    rest(pause);
    const auto begun = Clock::now();
    input.buttonUp();
    move();
    return begun;
  };
  return {"floor (let go, one request)", drag, request.putBack};
}

DragCost costOfDragging(desktop::Session& session, const desktop::TestWindow& window, pid_t tilwin,
                        Milliseconds time) {
  takeHold(session, window);
  const PixelPoint middle = session.input().pointer();
  const pid_t manager = session.manager().process().pid();
  const double tilwinBefore = processorTime(tilwin);
  const double managerBefore = processorTime(manager);
  const auto begun = Clock::now();
  for (int count = 0; count * step < time; ++count) {
    const double angle = 2 * std::numbers::pi * count / 250;
    session.input().movePointer({middle.x + static_cast<int>(200 * std::sin(angle)),
                                 middle.y + static_cast<int>(150 * (1 - std::cos(angle)))});
    std::this_thread::sleep_until(begun + (count + 1) * step);
  }
  const double taken = std::chrono::duration<double, std::nano>(Clock::now() - begun).count();
  const DragCost cost{(processorTime(tilwin) - tilwinBefore) / taken,
                      (processorTime(manager) - managerBefore) / taken};
  session.input().buttonUp();
  return cost;
}

Throws throwToTheLeft(desktop::Session& session, desktop::TestWindow& window, Milliseconds afterLastMove,
                      int count) {
  auto& input = session.input();
  Throws result;
  for (; result.thrown < count; ++result.thrown) {
    rest(thrown);  // else Tilwin would take this for the manager's doing, and put the window back
    session.desktop().place(window.id(), apart);
    if (!session.desktop().waitForFrame(window.id(), apart)) {
      throw desktop::HarnessError("a thrown window cannot be put back");
    }
    session.desktop().settle();
    takeHold(session, window);
    // Another number of steps each time, as they decide how long ago Tilwin's last look was.
    input.glide(nearTheEdge, 20 + result.thrown % 5, step);
    window.forget();
    input.movePointer(inTheZone);
    rest(afterLastMove);
    const auto begun = Clock::now();
    input.buttonUp();
    if (!session.desktop().waitForFrame(window.id(), leftHalf, 0, thrown)) continue;
    result.settled.milliseconds.push_back(millisecondsToFinalSize(window, begun));
  }
  return result;
}

Latencies timesToPreview(desktop::Session& session, const desktop::TestWindow& window, int count) {
  desktop::XConnection witness(session.server().display());
  constexpr std::uint32_t ofChildren = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
  xcb_change_window_attributes(witness.get(), witness.root(), XCB_CW_EVENT_MASK, &ofChildren);
  witness.sync();
  takeHold(session, window);
  Latencies result;
  for (; count > 0; --count) {
    session.input().comeToRest(nearTheEdge);
    rest(pause);
    const auto begun = Clock::now();
    session.input().movePointer(inTheZone);
    const std::chrono::duration<double, std::milli> taken = waitForPreview(witness) - begun;
    result.milliseconds.push_back(taken.count());
  }
  session.input().movePointer({960, 500});
  rest(pause);
  session.input().buttonUp();
  session.desktop().settle();
  return result;
}

}  // namespace tilwin::bench
