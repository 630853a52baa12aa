#include "tests/contract/World.h"

#include "platform/simulated/SimulatedDesktop.h"

namespace tilwin::contract {
namespace {

class SimulatedWorld : public World {
public:
  SimulatedWorld() { takeRoomAtTop(0); }

  std::shared_ptr<DesktopWindows> provider() override { return desktop_.provider(); }
  HotKeys& hotKeys() override { return desktop_.hotKeys(); }
  MainQueue& mainQueue() override { return desktop_.mainQueue(); }
  PointerMonitor& pointer() override { return desktop_.pointerMonitor(); }
  ScreenChanges& screenChanges() override { return desktop_.screenChanges(); }

  Window open(const NewWindow& window) override {
    return static_cast<Window>(desktop_.windows.open({.bundleID = window.bundleID,
                                                      .appName = window.bundleID,
                                                      .title = window.title,
                                                      .frame = window.frame,
                                                      .minimumWidth = window.minimumWidth,
                                                      .minimumHeight = window.minimumHeight,
                                                      .widthStep = window.widthStep,
                                                      .heightStep = window.heightStep,
                                                      .isStandard = !window.isDialog}));
  }
  void close(Window window) override { desktop_.windows.close(handle(window)); }
  void focus(Window window) override { desktop_.windows.focus(handle(window)); }
  void minimize(Window window) override { desktop_.windows.minimize(handle(window)); }
  void maximize(Window window) override { desktop_.windows.maximize(handle(window)); }
  void moveByHand(Window window, const Rect& frame) override {
    desktop_.windows.moveByHand(handle(window), frame);
  }
  std::optional<Rect> standing(Window window) override {
    const auto* found = desktop_.windows.find(handle(window));
    return found == nullptr ? std::nullopt : std::optional(found->frame);
  }
  bool isMaximized(Window window) override {
    const auto* found = desktop_.windows.find(handle(window));
    return found != nullptr && found->isMaximized;
  }

  void press(const HotKeySpec& spec) override { desktop_.keyboard.press(spec); }
  void pressUntilItRepeats(const HotKeySpec& spec) override {
    for (int event = 0; event < 3; ++event) desktop_.keyboard.keyDown(spec);
    desktop_.keyboard.keyUp(spec.keyCode);
  }
  void setLocks(bool capsLock, bool numLock) override { desktop_.keyboard.setLocks(capsLock, numLock); }
  void holdElsewhere(const HotKeySpec& spec) override { desktop_.keyboard.holdElsewhere(spec); }
  void letGoElsewhere(const HotKeySpec& spec) override { desktop_.keyboard.letGoElsewhere(spec); }

  void buttonDown() override { desktop_.mouse.press(desktop_.pointerMonitor().position()); }
  void buttonUp() override { desktop_.mouse.release(); }
  void movePointer(Point to) override { desktop_.mouse.drag(to); }
  void callOffDrag() override { desktop_.mouse.cancel(); }
  void takeRoomAtTop(double points) override {
    desktop_.windows.reserve(1, {.top = 25 + points, .bottom = 60});
    desktop_.screens.tell();
  }

  bool settle(const std::function<bool()>& condition) override {
    desktop_.time.runDue();
    return condition();
  }

private:
  static SimulatedWindows::Handle handle(Window window) {
    return static_cast<SimulatedWindows::Handle>(window);
  }

  SimulatedDesktop desktop_{"1440x900+0+0,1280x1024+1440-100"};
};

}  // namespace

std::unique_ptr<World> makeSimulatedWorld() { return std::make_unique<SimulatedWorld>(); }

INSTANTIATE_TEST_SUITE_P(Simulated, WindowProviderContract, testing::Values(&makeSimulatedWorld));
INSTANTIATE_TEST_SUITE_P(Simulated, HotKeysContract, testing::Values(&makeSimulatedWorld));
INSTANTIATE_TEST_SUITE_P(Simulated, MainQueueContract, testing::Values(&makeSimulatedWorld));
INSTANTIATE_TEST_SUITE_P(Simulated, PointerContract, testing::Values(&makeSimulatedWorld));
INSTANTIATE_TEST_SUITE_P(Simulated, ScreenChangesContract, testing::Values(&makeSimulatedWorld));

}  // namespace tilwin::contract
