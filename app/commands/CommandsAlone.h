#pragma once

#include <memory>
#include <span>
#include <string>

#include "core/commands/CommandReply.h"
#include "platform/ports/AccessibilityTrust.h"
#include "platform/ports/Bundle.h"
#include "platform/ports/DesktopReport.h"
#include "platform/ports/DesktopWindows.h"
#include "platform/ports/DesktopWords.h"
#include "platform/ports/MainQueue.h"
#include "platform/ports/SystemLog.h"
#include "platform/ports/SystemReport.h"
#include "platform/ports/UserDefaults.h"
#include "platform/ports/Workspace.h"

namespace tilwin {

/// Carries out one command where no instance runs, with the stored settings and layouts. Nothing is stored.
struct CommandsAlone {
  struct Ports {
    MainQueue& mainQueue;
    SystemLog& log;
    UserDefaults& userDefaults;
    std::shared_ptr<DesktopWindows> windows;
    AccessibilityTrust& trust;
    Bundle& bundle;
    Workspace& workspace;
    const DesktopWords& words;
    DesktopReport& desktopReport;
    SystemReport& systemReport;
  };

  struct Result {
    CommandReply reply{};
    bool mayHaveMoved = false;  ///< windows, which the desktop may still have to be asked for in another way
  };
  [[nodiscard]] static Result run(const Ports& ports, std::span<const std::string> arguments);
};

}  // namespace tilwin
