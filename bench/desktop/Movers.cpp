#include "bench/desktop/Movers.h"

#include "tests/desktop/harness/GrabbedKey.h"
#include "tests/desktop/harness/HarnessError.h"

namespace tilwin::bench {

namespace {

using desktop::Clock;

constexpr Rect left{0, 0, 960, 1080};
constexpr Rect right{960, 0, 960, 1080};

Mover keys(desktop::Session& session, const std::string& name, const std::string& toLeft,
           const std::string& toRight) {
  auto& input = session.input();
  return {name, [&input, toLeft] { return input.press(toLeft); },
          [&input, toRight] { return input.press(toRight); }};
}

Mover requests(desktop::Session& session, const desktop::TestWindow& window) {
  const auto sending = [&session](const desktop::PlaceRequest& request) {
    return [&session, request] {
      const auto begun = Clock::now();
      session.desktop().send(request);
      return begun;
    };
  };
  return {"floor (one request)", sending(session.desktop().placeRequest(window.id(), left)),
          sending(session.desktop().placeRequest(window.id(), right))};
}

std::string wmctrlLine(const Rect& frame, const desktop::Extents& extents) {
  const auto whole = [](double value) { return std::to_string(static_cast<int>(value)); };
  return "  wmctrl -r :ACTIVE: -e 1," + whole(frame.x) + "," + whole(frame.y) + "," +
         whole(frame.width - extents.left - extents.right) + "," +
         whole(frame.height - extents.top - extents.bottom) + "\n";
}

}  // namespace

std::vector<Mover> moversFor(desktop::Session& session, const desktop::TestWindow& window) {
  std::vector<Mover> result{requests(session, window),
                            keys(session, "Tilwin", "Control+Alt+Left", "Control+Alt+Right"),
                            keys(session, "sxhkd + wmctrl", "Control+Super+Left", "Control+Super+Right")};
  const auto& manager = session.manager().traits();
  // openbox has no tiling; what its configuration can do instead is not its own.
  if (manager.manager != desktop::Manager::openbox) {
    result.push_back(keys(session, std::string(manager.name) + "'s own keys", desktop::nativeTileLeft,
                          desktop::nativeTileRight));
  }
  return result;
}

desktop::ChildProcess startSxhkd(desktop::Session& session, const desktop::TestWindow& window) {
  const auto extents = session.desktop().frameExtents(window.id());
  session.home().write("sxhkdrc", "super + ctrl + Left\n" + wmctrlLine(left, extents) +
                                      "super + ctrl + Right\n" + wmctrlLine(right, extents));
  auto process = session.start("sxhkd", {"sxhkd", "-c", (session.home().path() / "sxhkdrc").string()});
  const auto& display = session.server().display();
  if (!session.desktop().waitUntil([&] { return desktop::keyIsGrabbed(display, "Control+Super+Right"); })) {
    throw desktop::HarnessError("sxhkd did not take its keys: " + process.output());
  }
  return process;
}

}  // namespace tilwin::bench
