#include "tests/desktop/tour/DisplayAct.h"

#include <array>
#include <cstdio>

#include "tests/desktop/TilwinProcess.h"
#include "tests/desktop/harness/HarnessError.h"
#include "tests/desktop/tour/Background.h"
#include "tests/desktop/tour/OwnWindow.h"
#include "tests/desktop/tour/Stage.h"

namespace tilwin::desktop {

namespace {

const PluggedDisplay laptop{.output = "DUMMY0", .mode = {1280, 800}, .position = {0, 0}, .primary = true};
const PluggedDisplay monitor{.output = "DUMMY1", .mode = {1280, 800}, .position = {1280, 0}};

/// The program keeps what is open every 20 seconds.
constexpr Milliseconds longestCapture{23000};

/// Where each window is while the monitor is there.
constexpr Rect onLaptop{0, 0, 640, 800};
constexpr Rect onMonitorLeft{1280, 0, 854, 800};
constexpr Rect onMonitorRight{2134, 0, 426, 800};

class DisplayAct {
public:
  DisplayAct(Session& session, const TourArguments& arguments, std::vector<Scene>& scenes, Album& album)
      : session_(session),
        tilwin_(session, arguments.tilwin),
        stage_(session, arguments.output, scenes),
        album_(album) {}

  void play() {
    stage_.set(demo_, onLaptop);
    stage_.set(editor_, onMonitorLeft);
    stage_.set(terminal_, onMonitorRight);
    album_.keep(session_, "display-1-before", "two displays, two windows on the right one");
    waitForText(session_, session_.home().data() / "Tilwin" / "layouts.json", "Automatic", longestCapture);
    session_.server().unplug(monitor.output);
    snap(editor_, "Control+Alt+i", {640, 0, 640, 400});
    snap(terminal_, "Control+Alt+k", {640, 400, 640, 400});
    album_.keep(session_, "display-2-unplugged",
                "the right display is unplugged, its windows are put on the other");
    const auto plugged = Clock::now();
    session_.server().plug(monitor);
    expectBack(editor_, onMonitorLeft, plugged);
    expectBack(terminal_, onMonitorRight, plugged);
    album_.keep(session_, "display-3-back", "it is plugged in again: the windows are back");
  }

private:
  void expectBack(const RealApplication& application, const Rect& frame, Clock::time_point plugged) {
    stage_.keep(application,
                {.by = "display", .action = "display-back", .expected = frame, .timed = false, .right = true},
                plugged);
  }

  void snap(const RealApplication& application, const char* chord, const Rect& frame) {
    auto& desktop = session_.desktop();
    if (!desktop.activate(application.window())) throw HarnessError("a window cannot be focused");
    session_.input().press(chord);
    if (!desktop.waitUntil([&] { return stage_.isRight(application.window(), frame); })) {
      throw HarnessError("a window is not snapped to the display that is left");
    }
  }

  Session& session_;
  TilwinProcess tilwin_;
  RealApplication demo_{session_.open(Application::gtkHeaderBar)};
  RealApplication editor_{session_.open(Application::gtkMenuBar)};
  RealApplication terminal_{session_.open(Application::xterm)};
  Stage stage_;
  Album& album_;
};

}  // namespace

void playDisplays(const TourArguments& arguments, std::vector<Scene>& scenes, Album& album) {
  std::string whyNot;
  const auto session = Session::tryStart(
      {.manager = Manager::xfwm4, .setup = {.compositing = false}, .displays = {laptop, monitor}}, whyNot);
  if (!session) {
    std::printf("A display that comes back cannot be shown here: %s\n", whyNot.c_str());
    return;
  }
  paintBackground(*session);
  DisplayAct(*session, arguments, scenes, album).play();
}

}  // namespace tilwin::desktop
