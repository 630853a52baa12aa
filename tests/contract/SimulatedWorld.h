#pragma once

#include "tests/contract/SimulatedInputWorld.h"

namespace tilwin::contract {

/// A simulated desktop with its windows.
class SimulatedWorld : public SimulatedInputWorld {
public:
  SimulatedWorld() { takeRoomAtTop(0); }

  std::shared_ptr<DesktopWindows> provider() override { return desktop_.provider(); }

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
  void unmaximize(Window window) override { desktop_.windows.unmaximize(handle(window)); }
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

  void takeRoomAtTop(double points) override {
    desktop_.windows.reserve(1, {.top = 25 + points, .bottom = 60});
    desktop_.screens.tell();
  }

private:
  static SimulatedWindows::Handle handle(Window window) {
    return static_cast<SimulatedWindows::Handle>(window);
  }
};

}  // namespace tilwin::contract
