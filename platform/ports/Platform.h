#pragma once

#include <memory>

#include "platform/ports/AccessibilityTrust.h"
#include "platform/ports/Bundle.h"
#include "platform/ports/DesktopWindows.h"
#include "platform/ports/HotKeys.h"
#include "platform/ports/MainQueue.h"
#include "platform/ports/Overlay.h"
#include "platform/ports/PointerMonitor.h"
#include "platform/ports/ScreenChanges.h"
#include "platform/ports/SystemLog.h"
#include "platform/ports/UserDefaults.h"

namespace tilwin {

/// Everything the program needs from one desktop. The composition root creates and owns the adapters; they
/// must outlive every user of this.
struct Platform {
  MainQueue& mainQueue;
  SystemLog& log;
  HotKeys& hotKeys;
  UserDefaults& userDefaults;
  std::shared_ptr<DesktopWindows> windows;
  PointerMonitor& pointer;
  Overlay& overlay;
  AccessibilityTrust& trust;
  ScreenChanges& screenChanges;
  Bundle& bundle;
};

}  // namespace tilwin
