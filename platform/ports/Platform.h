#pragma once

#include <memory>

#include "platform/ports/AccessibilityTrust.h"
#include "platform/ports/Bundle.h"
#include "platform/ports/DesktopReport.h"
#include "platform/ports/DesktopWindows.h"
#include "platform/ports/DesktopWords.h"
#include "platform/ports/Dialogs.h"
#include "platform/ports/FileViewer.h"
#include "platform/ports/HotKeys.h"
#include "platform/ports/LoginService.h"
#include "platform/ports/MainQueue.h"
#include "platform/ports/Notifications.h"
#include "platform/ports/Overlay.h"
#include "platform/ports/PointerMonitor.h"
#include "platform/ports/ScreenChanges.h"
#include "platform/ports/SettingsWindow.h"
#include "platform/ports/StatusItem.h"
#include "platform/ports/SystemLog.h"
#include "platform/ports/SystemReport.h"
#include "platform/ports/UpdateFramework.h"
#include "platform/ports/UserDefaults.h"
#include "platform/ports/Workspace.h"

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
  Workspace& workspace;
  StatusItem& statusItem;
  Dialogs& dialogs;
  SettingsWindow& settingsWindow;
  FileViewer& files;
  LoginService& login;
  UpdateFramework& updates;
  DesktopWords& words;
  DesktopReport& desktopReport;
  SystemReport& systemReport;
  Notifications* notifications = nullptr;  ///< null where nobody but programs like this one takes hot keys
};

}  // namespace tilwin
