// Shows the finished program at work on private desktops: every default shortcut pressed on real windows,
// windows dragged to every edge and corner, each frame held against what was meant; then the menu, its
// dialogs, the settings window, and a display that comes back. Each scene is kept as a picture.

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <string_view>
#include <vector>

#include "tests/desktop/DefaultShortcuts.h"
#include "tests/desktop/TilwinProcess.h"
#include "tests/desktop/harness/ExitGuard.h"
#include "tests/desktop/harness/HarnessError.h"
#include "tests/desktop/tour/Album.h"
#include "tests/desktop/tour/Arguments.h"
#include "tests/desktop/tour/Background.h"
#include "tests/desktop/tour/DisplayAct.h"
#include "tests/desktop/tour/MenuAct.h"
#include "tests/desktop/tour/Stage.h"

namespace {

using namespace tilwin;
using namespace tilwin::desktop;

void playOneDisplay(const TourArguments& arguments, std::vector<Scene>& scenes) {
  Session session;
  paintBackground(session);
  const TilwinProcess program(session, arguments.tilwin);
  const std::array applications{session.open(Application::xterm), session.open(Application::gtkHeaderBar),
                                session.open(Application::qt)};
  Stage stage(session, arguments.output, scenes);
  for (std::size_t index = 0; index < oneDisplayShortcuts.size(); ++index) {
    const auto& shortcut = oneDisplayShortcuts[index];
    // A terminal starts from whole cells, so what depends on the start is shown on the others.
    const std::size_t choice = index % applications.size();
    const auto& application = applications[shortcut.relative ? std::max<std::size_t>(choice, 1) : choice];
    stage.set(application, startFrame);
    if (shortcut.frame == startFrame) {
      session.input().press(leftHalfKeys);
      session.desktop().waitForFrame(application.window(), {0, 0, 960, 1080});
    }
    stage.play(application, {shortcut.shown, shortcut.action, shortcut.chord, shortcut.frame});
  }
}

/// False, with the reason printed, where this machine cannot plug displays.
bool playTwoDisplays(const TourArguments& arguments, std::vector<Scene>& scenes) {
  std::string whyNot;
  const auto session =
      Session::tryStart({.displays = {{.output = "DUMMY0", .mode = {1920, 1080}, .primary = true},
                                      {.output = "DUMMY1", .mode = {1280, 1024}, .position = {1920, 0}}}},
                        whyNot);
  if (!session) {
    std::printf("Two displays cannot be shown here: %s\n", whyNot.c_str());
    return false;
  }
  paintBackground(*session);
  const TilwinProcess program(*session, arguments.tilwin);
  const auto application = session->open(Application::qt);
  Stage stage(*session, arguments.output, scenes);
  stage.set(application, {0, 0, 960, 1080});
  stage.play(application, {"⌃⌥⌘→", "nextDisplay", nextDisplayKeys, {1920, 0, 640, 1024}});
  stage.play(application, {"⌃⌥⌘←", "previousDisplay", previousDisplayKeys, {0, 0, 960, 1080}});
  return true;
}

/// On a composited desktop, where the preview lets through what is below it.
void playDrags(const TourArguments& arguments, std::vector<Scene>& scenes) {
  Session session;
  paintBackground(session);
  const ChildProcess compositor =
      session.start("picom", {"picom", "--backend", "xrender", "--config", "/dev/null"});
  if (!session.desktop().waitUntil([&] { return session.desktop().composited(); }, startTimeout)) {
    throw HarnessError("the compositor does not start");
  }
  const TilwinProcess program(session, arguments.tilwin);
  const std::array applications{session.open(Application::gtkHeaderBar), session.open(Application::qt)};
  Stage stage(session, arguments.output, scenes);
  for (std::size_t index = 0; index < oneDisplayDrags.size(); ++index) {
    const auto& application = applications[index % applications.size()];
    stage.set(application, startFrame);
    stage.drag(application, oneDisplayDrags[index]);
  }
}

int playAll(const TourArguments& arguments) {
  std::filesystem::remove_all(arguments.output);
  std::filesystem::create_directories(arguments.output);
  std::vector<Scene> scenes;
  playOneDisplay(arguments, scenes);
  playTwoDisplays(arguments, scenes);
  playDrags(arguments, scenes);
  Album album(arguments.output);
  playMenuAndSettings(arguments, scenes, album);
  playDisplays(arguments, scenes, album);
  if (isatty(STDERR_FILENO) != 0) std::fputs("\r\033[K", stderr);
  std::printf("%s\n%s\nPictures: %s\n%s; %zu pictures of menu, dialogs, settings and displays\n",
              tableOf(scenes).c_str(), album.table().c_str(), arguments.output.c_str(),
              summaryOf(scenes).c_str(), album.size());
  return std::ranges::all_of(scenes, &Scene::right) ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  const EndOnSignal endOnSignal;
  TourArguments arguments;
  for (int index = 1; index + 1 < argc; index += 2) {
    const std::string_view option = argv[index];
    if (option == "--tilwin") arguments.tilwin = std::filesystem::absolute(argv[index + 1]);
    if (option == "--output") arguments.output = std::filesystem::absolute(argv[index + 1]);
  }
  if (arguments.tilwin.empty() || arguments.output.empty()) {
    std::fputs("usage: tilwin-tour --tilwin PROGRAM --output FOLDER\n", stderr);
    return 2;
  }
  try {
    return playAll(arguments);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "\nThe tour cannot go on: %s\n", error.what());
    return 1;
  }
}
