#pragma once

#include <memory>

#include "core/geometry/WindowProvider.h"
#include "platform/ports/HotKeys.h"
#include "platform/ports/MainQueue.h"
#include "platform/ports/SystemLog.h"
#include "platform/ports/UserDefaults.h"

namespace tilwin {

/// Everything the program needs from one desktop. The composition root makes the adapters, owns them, and
/// keeps them for as long as anything uses this.
struct Platform {
  MainQueue& mainQueue;
  SystemLog& log;
  HotKeys& hotKeys;
  UserDefaults& userDefaults;
  std::shared_ptr<WindowProvider> windows;
};

}  // namespace tilwin
