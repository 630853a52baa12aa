#include "bench/desktop/Movers.h"

#include "bench/desktop/Commands.h"
#include "bench/desktop/Dragging.h"
#include "tests/desktop/harness/GrabbedKey.h"
#include "tests/desktop/harness/HarnessError.h"

namespace tilwin::bench {

namespace {

using desktop::Clock;

/// Of no manager's own.
constexpr const char* sxhkdKeys = "Control+Super+Home";

/// Longer than a manager takes for a key that it has got.
constexpr desktop::Milliseconds pressAgain{1000};

Mover requests(desktop::Session& session, const desktop::TestWindow& window) {
  const auto sending = [&session](const desktop::PlaceRequest& request) {
    return [&session, request] {
      const auto begun = Clock::now();
      session.desktop().send(request);
      return begun;
    };
  };
  return {"floor (one request)", sending(session.desktop().placeRequest(window.id(), leftHalf)),
          sending(session.desktop().placeRequest(window.id(), apart))};
}

Mover keys(desktop::Session& session, const std::string& name, const std::string& move,
           const std::string& putBack) {
  auto& input = session.input();
  return {name, [&input, move] { return input.press(move); }, [&input, putBack] { input.press(putBack); }};
}

Mover keys(desktop::Session& session, const desktop::TestWindow& window, const std::string& name,
           const std::string& move) {
  return {name, keys(session, name, move, move).move, requests(session, window).putBack};
}

std::string wmctrlLine(const Rect& frame, const desktop::Extents& extents) {
  std::string line = "  wmctrl";
  for (const std::string& each : wmctrlArguments(frame, extents)) line += " " + each;
  return line + "\n";
}

}  // namespace

std::vector<Mover> moversFor(desktop::Session& session, const desktop::TestWindow& window) {
  std::vector<Mover> result{requests(session, window),
                            keys(session, "Tilwin", "Control+Alt+Left", "Control+Alt+BackSpace")};
  const auto& manager = session.manager().traits();
  // Under kwin it moves nothing.
  if (manager.manager != desktop::Manager::kwin) {
    result.push_back(keys(session, window, "sxhkd + wmctrl", sxhkdKeys));
  }
  // openbox has no tiling of its own. The others remember that they tiled a window, and the same key undoes
  // it.
  if (manager.manager != desktop::Manager::openbox) {
    result.push_back(keys(session, std::string(manager.name) + "'s own keys", desktop::nativeTileLeft,
                          desktop::nativeTileLeft));
  }
  result.push_back(letGoAndRequest(session, window, result.front()));
  result.push_back(dragToTheLeft(session, window));
  result.back().floor = result.size() - 2;
  return result;
}

void waitForOwnKeys(desktop::Session& session, const desktop::TestWindow& window) {
  session.desktop().place(window.id(), apart);
  session.desktop().waitForFrame(window.id(), apart);
  const auto pressUntil = [&](const Rect& frame) {
    const auto until = Clock::now() + desktop::startTimeout;
    do {
      session.input().press(desktop::nativeTileLeft);
      if (session.desktop().waitForFrame(window.id(), frame, 0, pressAgain)) return;
    } while (Clock::now() < until);
    throw desktop::HarnessError(std::string(session.manager().traits().name) + "'s own keys do nothing");
  };
  pressUntil(leftHalf);
  if (session.manager().traits().manager != desktop::Manager::openbox) pressUntil(apart);
}

desktop::ChildProcess startSxhkd(desktop::Session& session, const desktop::TestWindow& window) {
  const auto extents = session.desktop().frameExtents(window.id());
  session.home().write("sxhkdrc", "super + ctrl + Home\n" + wmctrlLine(leftHalf, extents));
  auto process = session.start("sxhkd", {"sxhkd", "-c", (session.home().path() / "sxhkdrc").string()});
  const auto& display = session.server().display();
  if (!session.desktop().waitUntil([&] { return desktop::keyIsGrabbed(display, sxhkdKeys); })) {
    throw desktop::HarnessError("sxhkd did not take its keys: " + process.output());
  }
  return process;
}

}  // namespace tilwin::bench
