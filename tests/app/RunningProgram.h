#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/AppDelegate.h"
#include "core/layouts/LayoutStore.h"
#include "platform/simulated/SimulatedDesktop.h"
#include "tests/TemporaryFolder.h"

namespace tilwin {

/// The whole program, running on a simulated desktop.
struct RunningProgram : testing::Test {
  explicit RunningProgram(std::string_view displays = "1440x900+0+0") : desktop(displays, folder.path()) {}

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

  /// Opens the status menu and chooses the entry at this path of titles.
  testing::AssertionResult choose(const std::vector<std::string>& path) {
    if (!desktop.icon.choose(path)) {
      return testing::AssertionFailure() << "no such entry: " << testing::PrintToString(path);
    }
    desktop.time.runDue();
    return testing::AssertionSuccess();
  }
  [[nodiscard]] const TilwinSettings& settings() { return delegate->store().settings.get(); }
  [[nodiscard]] std::filesystem::path layoutsFile() const {
    return folder.path() / "Tilwin" / "layouts.json";
  }
  [[nodiscard]] LayoutStore savedLayouts() const { return LayoutStore::load(layoutsFile()); }

  TemporaryFolder folder;
  SimulatedDesktop desktop;
  Platform platform = desktop.platform();
  std::optional<AppDelegate> delegate;
};

}  // namespace tilwin
