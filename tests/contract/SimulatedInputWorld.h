#pragma once

#include <chrono>

#include "platform/simulated/SimulatedDesktop.h"
#include "tests/contract/World.h"

namespace tilwin::contract {

/// The keyboard, mouse and main queue of a simulated desktop. Derived classes add the windows.
class SimulatedInputWorld : public World {
public:
  SimulatedInputWorld() { desktop_.mouse.paceBy(desktop_.time); }

  HotKeys& hotKeys() override { return desktop_.hotKeys(); }
  MainQueue& mainQueue() override { return desktop_.mainQueue(); }
  PointerMonitor& pointer() override { return desktop_.pointerMonitor(); }
  ScreenChanges& screenChanges() override { return desktop_.screenChanges(); }

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

  bool settle(const std::function<bool()>& condition) override {
    constexpr std::chrono::milliseconds step{1};
    desktop_.time.runDue();
    for (int steps = 0; steps < 1000; ++steps) {
      if (condition()) return true;
      desktop_.time.advance(step);
    }
    return condition();
  }

protected:
  SimulatedDesktop desktop_{"1440x900+0+0,1280x1024+1440-100"};
};

}  // namespace tilwin::contract
