#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string_view>

#include "app/AppDelegate.h"
#include "platform/simulated/SimulatedDesktop.h"

namespace tilwin {

/// The whole program, running on a simulated desktop.
struct RunningProgram : testing::Test {
  explicit RunningProgram(std::string_view displays = "1440x900+0+0") : desktop(displays) {}

  void start() {
    delegate.emplace(platform);
    delegate->start();
  }
  /// Starts the program with stored settings.
  void startWith(const TilwinSettings& settings) {
    SettingsStore(desktop.userDefaults()).settings.set(settings);
    start();
  }
  void change(const TilwinSettings& settings) {
    delegate->store().settings.set(settings);
    desktop.time.runDue();
  }

  SimulatedDesktop desktop;
  Platform platform = desktop.platform();
  std::optional<AppDelegate> delegate;
};

}  // namespace tilwin
