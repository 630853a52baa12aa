#pragma once

#include <optional>
#include <ostream>
#include <span>

#include "platform/ports/AccessibilityTrust.h"
#include "platform/ports/Bundle.h"
#include "platform/ports/DesktopWindows.h"
#include "platform/ports/DesktopWords.h"
#include "platform/ports/LoginService.h"
#include "platform/ports/SystemLog.h"

namespace tilwin {

/// Command-line modes, which run instead of the normal program: `--enable-login-item`,
/// `--disable-login-item`, `--status` and `--shadow-report`. If several are named, the first in this order
/// runs. Unknown arguments are ignored.
struct CommandLine {
  /// What modes use that need no display.
  struct Ports {
    Bundle& bundle;
    LoginService& login;
    DesktopWords& words;
    SystemLog& log;
  };

  /// What modes use that ask the desktop.
  struct DesktopPorts {
    DesktopWindows& windows;
    AccessibilityTrust& trust;
  };

  /// Runs the mode that the arguments name, if it needs no display, and returns the exit status. Returns
  /// nothing if they name none, or one for `runOnDesktop`.
  [[nodiscard]] static std::optional<int> run(std::span<const char* const> arguments, const Ports& ports,
                                              std::ostream& output);
  /// The same for a mode that asks the desktop. Call it after `run`, once there is a connection to the
  /// desktop and before the program's services start.
  [[nodiscard]] static std::optional<int> runOnDesktop(std::span<const char* const> arguments,
                                                       const DesktopPorts& ports, std::ostream& output);
};

}  // namespace tilwin
