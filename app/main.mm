// The composition root on macOS: the only place there that knows which desktop the program is built for.

#import <Foundation/Foundation.h>

#include <cstddef>
#include <iostream>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "app/AppDelegate.h"
#include "app/CommandLine.h"
#include "app/commands/CommandRunner.h"
#include "app/commands/CommandsAlone.h"
#include "app/commands/PrintedReply.h"
#include "app/windows/AXWindowProvider.h"
#include "core/support/StandardStreams.h"
#include "platform/macos/displays/MacScreenChanges.h"
#include "platform/macos/displays/MacScreens.h"
#include "platform/macos/input/CarbonHotKeys.h"
#include "platform/macos/input/MacPointerMonitor.h"
#include "platform/macos/menu/MacDialogs.h"
#include "platform/macos/menu/MacStatusItem.h"
#include "platform/macos/menu/MainMenu.h"
#include "platform/macos/overlay/MacOverlay.h"
#include "platform/macos/settings/MacSettingsWindow.h"
#include "platform/macos/support/Held.h"
#include "platform/macos/system/MacApplication.h"
#include "platform/macos/system/MacBundle.h"
#include "platform/macos/system/MacFileViewer.h"
#include "platform/macos/system/MacLocale.h"
#include "platform/macos/system/MacLoginService.h"
#include "platform/macos/system/MacMainQueue.h"
#include "platform/macos/system/MacStopSignals.h"
#include "platform/macos/system/MacSystemLog.h"
#include "platform/macos/system/MacSystemReport.h"
#include "platform/macos/system/MacUpdateFramework.h"
#include "platform/macos/system/MacUserDefaults.h"
#include "platform/macos/system/MessagePortCaller.h"
#include "platform/macos/system/MessagePortCommands.h"
#include "platform/macos/windows/MacAccessibility.h"
#include "platform/macos/windows/MacTrust.h"
#include "platform/macos/windows/MacWorkspace.h"

namespace {

using namespace tilwin;
using Arguments = std::span<const char* const>;

/// What needs no window server.
struct System {
  macos::MacSystemLog log;
  macos::MacBundle bundle{[NSBundle mainBundle]};
  macos::MacLoginService login;
  DesktopWords words;
  DesktopReport desktopReport;
  macos::MacSystemReport systemReport{bundle};
};

/// The adapters to windows, displays, keys and pointer.
struct Desktop {
  macos::MacAccessibility accessibility;
  macos::MacWorkspace workspace{[NSBundle mainBundle]};
  macos::MacScreens screens;
  macos::MacScreenChanges screenChanges;
  macos::MacTrust trust;
  std::shared_ptr<AXWindowProvider> windows =
      std::make_shared<AXWindowProvider>(accessibility, workspace, screens);
};

/// The event loop, what the program hears by it of signals, keys and mouse, and shows while a window is
/// dragged.
struct Input {
  macos::MacMainQueue queue;
  macos::MacStopSignals stopSignals{queue};
  macos::CarbonHotKeys hotKeys;
  macos::MacPointerMonitor pointer{queue};
  macos::MacOverlay overlay;
};

/// What the program shows of itself.
struct Interface {
  Interface(System& system, MainQueue& queue) : statusItem(queue), files(system.log) {}

  macos::MacStatusItem statusItem;
  macos::MacDialogs dialogs;
  macos::MacSettingsWindow settingsWindow;
  macos::MacFileViewer files;
  macos::MacUpdateFramework updates{[NSBundle mainBundle]};
};

Platform platformOf(System& system, Desktop& desktop, UserDefaults& userDefaults, Input& input,
                    Interface& interface) {
  return {.mainQueue = input.queue,
          .log = system.log,
          .hotKeys = input.hotKeys,
          .userDefaults = userDefaults,
          .windows = desktop.windows,
          .pointer = input.pointer,
          .overlay = input.overlay,
          .trust = desktop.trust,
          .screenChanges = desktop.screenChanges,
          .bundle = system.bundle,
          .workspace = desktop.workspace,
          .statusItem = interface.statusItem,
          .dialogs = interface.dialogs,
          .settingsWindow = interface.settingsWindow,
          .files = interface.files,
          .login = system.login,
          .updates = interface.updates,
          .words = system.words,
          .desktopReport = system.desktopReport,
          .systemReport = system.systemReport};
}

int runProgram(System& system, Desktop& desktop, macos::MacApplication& application) {
  macos::MacUserDefaults userDefaults(system.log);
  Input input;
  Interface interface(system, input.queue);
  Platform platform = platformOf(system, desktop, userDefaults, input, interface);
  AppDelegate delegate(platform);
  macos::MessagePortCommands commands;
  application.onLaunched([&] {
    macos::installMainMenu();
    delegate.takeCommands({&commands});
    delegate.start();
  });
  application.onReopened([&delegate] { delegate.showSettings(); });
  return input.queue.run();
}

/// By the running instance, which the program that is called asks; or without one.
int runCommand(System& system, const std::vector<std::string>& words) {
  const auto printLine = [](std::string_view line) { std::cout << line << std::endl; };
  // The version is that of what was called, which an update may have replaced since the instance started.
  if (words.front() != "version") {
    if (const auto reply = macos::MessagePortCaller::ask(words, printLine)) return print(*reply);
  }
  if (const auto reply = CommandRunner::runWithoutDesktop(words, system.bundle.version()))
    return print(*reply);
  const macos::MacApplication application;
  Desktop desktop;
  macos::MacMainQueue queue;
  macos::MacUserDefaults userDefaults(system.log);
  return print(
      CommandsAlone::run({queue, system.log, userDefaults, desktop.windows, desktop.trust, system.bundle,
                          desktop.workspace, system.words, system.desktopReport, system.systemReport},
                         words)
          .reply);
}

}  // namespace

int main(int argc, char** argv) {
  StandardStreams::secure();
  const macos::AutoreleasePool pool;
  macos::takeUserLocale();
  System system;
  const auto arguments = Arguments(argv, static_cast<std::size_t>(argc)).subspan(1);
  const CommandLine::Ports ports{system.bundle, system.login, system.words, system.log};
  if (const auto status = CommandLine::run(arguments, ports, std::cout)) return *status;
  if (!arguments.empty() && CommandParser::isForCommand(arguments.front())) {
    return runCommand(system, {arguments.begin(), arguments.end()});
  }
  macos::MacApplication application;
  Desktop desktop;
  if (const auto status =
          CommandLine::runOnDesktop(arguments, {*desktop.windows, desktop.trust}, std::cout)) {
    return *status;
  }
  return runProgram(system, desktop, application);
}
