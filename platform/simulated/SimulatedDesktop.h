#pragma once

#include <memory>
#include <string_view>

#include "platform/ports/Platform.h"
#include "platform/simulated/SimulatedHotKeys.h"
#include "platform/simulated/SimulatedLog.h"
#include "platform/simulated/SimulatedMainQueue.h"
#include "platform/simulated/SimulatedUserDefaults.h"
#include "platform/simulated/SimulatedWindows.h"

namespace tilwin {

/// A whole desktop in memory. The program gets `platform()`; whoever plays the user and the other programs
/// works the parts by name.
class SimulatedDesktop {
public:
  /// `displays` as `parseDisplays` reads them; throws `std::invalid_argument` for anything else.
  explicit SimulatedDesktop(std::string_view displays = "1440x900+0+0");
  SimulatedDesktop(const SimulatedDesktop&) = delete;
  SimulatedDesktop& operator=(const SimulatedDesktop&) = delete;
  ~SimulatedDesktop() = default;

  SimulatedMainQueue time;
  SimulatedLog log;
  SimulatedHotKeys keyboard;
  SimulatedUserDefaults disk;
  SimulatedWindows windows;

  /// Screens are plugged in and out; throws like the constructor.
  void setDisplays(std::string_view displays);

  /// The ports onto this desktop; it must outlive their use.
  [[nodiscard]] Platform platform() { return {time, log, keyboard, disk, provider_}; }
  [[nodiscard]] std::shared_ptr<WindowProvider> provider() const { return provider_; }
  [[nodiscard]] HotKeys& hotKeys() { return keyboard; }
  [[nodiscard]] MainQueue& mainQueue() { return time; }
  [[nodiscard]] SystemLog& systemLog() { return log; }
  [[nodiscard]] UserDefaults& userDefaults() { return disk; }

private:
  std::shared_ptr<WindowProvider> provider_;
};

}  // namespace tilwin
