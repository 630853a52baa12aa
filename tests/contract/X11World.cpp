#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <map>

#include "platform/qt/QtMainQueue.h"
#include "platform/x11/input/KeyPositions.h"
#include "platform/x11/input/X11HotKeys.h"
#include "platform/x11/input/X11Pointer.h"
#include "platform/x11/windows/X11WindowProvider.h"
#include "tests/contract/MainLoop.h"
#include "tests/contract/TestLogs.h"
#include "tests/contract/World.h"
#include "tests/desktop/harness/GrabbedKey.h"
#include "tests/desktop/harness/Session.h"

namespace tilwin::contract {
namespace {

using desktop::Milliseconds;

constexpr Milliseconds patience{5000};
/// Longer than a hand needs after it has seen a window move.
constexpr Milliseconds reaction{250};
/// Longer than two repeats of a held key at X servers' usual rate: 660 ms, then 40 ms each.
constexpr Milliseconds held{1000};

/// The desktop that all worlds share; each has its own connection to it and opens and closes its own windows.
desktop::Session& session() {
  static desktop::Session shared;
  return shared;
}

/// The keys of a combination by name, the last one by its position on the keyboard.
std::vector<std::string> keysOf(const HotKeySpec& spec) {
  constexpr std::array<std::pair<std::uint32_t, const char*>, 4> modifiers{{{HotKeySpec::control, "Control"},
                                                                            {HotKeySpec::option, "Alt"},
                                                                            {HotKeySpec::shift, "Shift"},
                                                                            {HotKeySpec::cmd, "Super"}}};
  std::vector<std::string> result;
  for (const auto& [bit, name] : modifiers) {
    if ((spec.modifiers & bit) != 0) result.emplace_back(name);
  }
  const auto* found = std::ranges::find(x11::keyPositions, spec.keyCode, &x11::KeyPosition::keyCode);
  result.push_back("<" + std::string(found->name) + ">");
  return result;
}

std::string chordOf(const HotKeySpec& spec) {
  std::string result;
  for (const auto& key : keysOf(spec)) result += (result.empty() ? "" : "+") + key;
  return result;
}

class X11World : public World {
public:
  X11World() {
    queue_.watch(x_.fileDescriptor(), [this] { x_.dispatch(); });
    queue_.beforeEachSleep([this] { return x_.dispatchQueued(); });
    session().desktop().waitUntil([] { return session().desktop().clients().empty(); });
  }

  std::shared_ptr<DesktopWindows> provider() override { return provider_; }
  HotKeys& hotKeys() override { return hotKeys_; }
  MainQueue& mainQueue() override { return queue_; }
  PointerMonitor& pointer() override { return pointer_; }
  ScreenChanges& screenChanges() override { return displays_; }

  Window open(const NewWindow& window) override {
    const auto whole = [](double value) { return static_cast<int>(value); };
    const bool steps = window.widthStep > 1 || window.heightStep > 1;
    const desktop::PixelSize increment{whole(window.widthStep), whole(window.heightStep)};
    auto opened = std::make_unique<desktop::TestWindow>(
        session().server().display(),
        desktop::TestWindowOptions{
            .className = window.bundleID,
            .title = window.title,
            .area = window.frame,
            .kind = window.isDialog ? desktop::WindowKind::dialog : desktop::WindowKind::normal,
            .minimum = {whole(window.minimumWidth), whole(window.minimumHeight)},
            .increment = steps ? increment : desktop::PixelSize(),
            // A provider leaves windows of its own process alone.
            .process = getppid()});
    const auto id = opened->id();
    windows_.emplace(id, std::move(opened));
    return id;
  }
  void close(Window window) override { windows_.erase(handle(window)); }
  void focus(Window window) override { session().desktop().activate(handle(window)); }
  void minimize(Window window) override {
    session().desktop().set(handle(window), desktop::WindowState::hidden, true);
  }
  void maximize(Window window) override { session().desktop().setMaximized(handle(window), true); }
  void unmaximize(Window window) override { session().desktop().setMaximized(handle(window), false); }
  void moveByHand(Window window, const Rect& frame) override {
    runMainLoop(reaction);
    session().desktop().place(handle(window), frame);
  }
  std::optional<Rect> standing(Window window) override { return session().desktop().frame(handle(window)); }
  bool isMaximized(Window window) override { return session().desktop().maximized(handle(window)); }

  void press(const HotKeySpec& spec) override { session().input().press(chordOf(spec)); }
  void pressUntilItRepeats(const HotKeySpec& spec) override {
    auto keys = keysOf(spec);
    for (const auto& key : keys) session().input().keyDown(key);
    runMainLoop(held);
    std::ranges::reverse(keys);
    for (const auto& key : keys) session().input().keyUp(key);
  }
  void setLocks(bool capsLock, bool numLock) override {
    session().input().setCapsLock(capsLock);
    session().input().setNumLock(numLock);
  }
  void holdElsewhere(const HotKeySpec& spec) override {
    heldElsewhere_.emplace(
        chordOf(spec), std::make_unique<desktop::GrabbedKey>(session().server().display(), chordOf(spec)));
  }
  void letGoElsewhere(const HotKeySpec& spec) override { heldElsewhere_.erase(chordOf(spec)); }

  void buttonDown() override { session().input().buttonDown(); }
  void buttonUp() override { session().input().buttonUp(); }
  void movePointer(Point to) override {
    session().input().movePointer({static_cast<int>(to.x), static_cast<int>(to.y)});
  }
  void callOffDrag() override { session().input().press("Escape"); }
  void takeRoomAtTop(double points) override {
    const auto taken = static_cast<int>(points);
    panel_.emplace(session().server().display(),
                   desktop::TestWindowOptions{.title = "Panel",
                                              .area = {0, 0, 1920, points},
                                              .kind = desktop::WindowKind::dock,
                                              .strut = {.top = taken},
                                              .strutSpans = {0, 0, 0, 0, 0, 1919, 0, 0}});
  }

  bool settle(const std::function<bool()>& condition) override {
    return runMainLoopUntil(condition, patience);
  }

private:
  static desktop::WindowId handle(Window window) { return static_cast<desktop::WindowId>(window); }

  FailingLog log_;
  qt::QtMainQueue queue_;
  x11::X11Connection x_{log_};
  x11::X11HotKeys hotKeys_{x_, queue_};
  x11::X11Displays displays_{x_, queue_};
  x11::HeldWindow held_{x_};
  std::shared_ptr<x11::X11WindowProvider> provider_ =
      std::make_shared<x11::X11WindowProvider>(x_, displays_, held_, queue_);
  x11::X11Pointer pointer_{x_, held_, queue_};
  std::optional<desktop::TestWindow> panel_;
  std::map<desktop::WindowId, std::unique_ptr<desktop::TestWindow>> windows_;
  std::map<std::string, std::unique_ptr<desktop::GrabbedKey>> heldElsewhere_;
};

std::unique_ptr<World> makeX11World() {
  setenv("DISPLAY", session().server().display().c_str(), 1);
  return std::make_unique<X11World>();
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(X11, WindowProviderContract, testing::Values(&makeX11World));
INSTANTIATE_TEST_SUITE_P(X11, ReportedFrameContract, testing::Values(&makeX11World));
INSTANTIATE_TEST_SUITE_P(X11, LargeWindowContract, testing::Values(&makeX11World));
INSTANTIATE_TEST_SUITE_P(X11, MaximizedWindowContract, testing::Values(&makeX11World));
INSTANTIATE_TEST_SUITE_P(X11, HotKeysContract, testing::Values(&makeX11World));
INSTANTIATE_TEST_SUITE_P(X11, MainQueueContract, testing::Values(&makeX11World));
INSTANTIATE_TEST_SUITE_P(X11, PointerContract, testing::Values(&makeX11World));
INSTANTIATE_TEST_SUITE_P(X11, CancelledDragContract, testing::Values(&makeX11World));
INSTANTIATE_TEST_SUITE_P(X11, ScreenChangesContract, testing::Values(&makeX11World));

}  // namespace tilwin::contract
