// The composition root on Linux: the only place there that knows which desktop the program is built for.

#include <QApplication>
#include <QCoreApplication>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <optional>
#include <span>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "TilwinBuild.h"
#include "app/AppDelegate.h"
#include "app/CommandLine.h"
#include "app/X11Desktop.h"
#include "app/client/Places.h"
#include "app/commands/CommandRunner.h"
#include "app/commands/CommandsAlone.h"
#include "app/commands/PrintedReply.h"
#include "app/menu/MenuBarImage.h"
#include "core/support/StandardStreams.h"
#include "platform/qt/BeforeMessages.h"
#include "platform/qt/FaultWatch.h"
#include "platform/qt/QtSystemLog.h"
#include "platform/qt/QtUserDefaults.h"
#include "platform/qt/StopSignals.h"
#include "platform/qt/XdgBundle.h"
#include "platform/qt/commands/BusCaller.h"
#include "platform/qt/commands/BusCommands.h"
#include "platform/qt/commands/SocketCommands.h"
#include "platform/qt/menu/QtDialogs.h"
#include "platform/qt/menu/QtStatusItem.h"
#include "platform/qt/menu/TemplateIcon.h"
#include "platform/qt/settings/QtSettingsWindow.h"
#include "platform/qt/system/BusNotifications.h"
#include "platform/qt/system/LinuxWords.h"
#include "platform/qt/system/QtFileViewer.h"
#include "platform/qt/system/QtInstance.h"
#include "platform/qt/system/QtSystemReport.h"
#include "platform/qt/system/QtUpdateFramework.h"
#include "platform/qt/system/XdgLoginService.h"
#include "platform/x11/input/X11HotKeys.h"
#include "platform/x11/wire/X11Connection.h"

namespace {

using namespace tilwin;
using Arguments = std::span<const char* const>;

/// In which a window manager answers a request, and the last of other attempts is made.
constexpr MainQueue::Seconds settlingTime{0.7};

/// What needs no display.
struct System {
  qt::QtSystemLog log;
  qt::XdgBundle bundle{
      {{UpdaterService::feedKey, build::feed}, {UpdaterService::tokenKey, build::updateToken}}};
  qt::XdgLoginService login{client::calledFor(qt::XdgLoginService::runningExecutable())};
  qt::LinuxWords words;
  qt::QtSystemReport report{build::version};
};

/// What the program shows of itself, with Qt.
struct Interface {
  Interface(System& system, x11::X11HotKeys& hotKeys)
      : settingsWindow([&hotKeys](std::uint32_t scanCode) { return hotKeys.keyCodeOf(scanCode); }),
        files(system.log),
        updates(build::version, {dialogs, files, system.log}) {}

  qt::QtStatusItem statusItem{};
  qt::QtDialogs dialogs{[this] { settingsWindow.takeColours(); }};
  qt::QtSettingsWindow settingsWindow;
  qt::QtFileViewer files;
  qt::QtUpdateFramework updates;
};

/// A command where no instance runs. The windows that it moves are looked after until they stand.
int runCommandAlone(System& system, X11Desktop& desktop, const std::vector<std::string>& arguments) {
  qt::QtUserDefaults userDefaults(system.log);
  const auto [reply, mayHaveMoved] =
      CommandsAlone::run({desktop.queue, system.log, userDefaults, desktop.windows, desktop.trust,
                          system.bundle, desktop.workspace, system.words, desktop.report, system.report},
                         arguments);
  desktop.x.tellIfLost();
  const int status = print(reply);
  if (!mayHaveMoved) return status;
  desktop.queue.postAfter(settlingTime, [&desktop, status] { desktop.queue.stop(status); });
  return desktop.queue.run();
}

/// The exit status, if the arguments ask for something else than the program itself.
std::optional<int> runModeOrCommand(System& system, X11Desktop& desktop, Arguments arguments) {
  std::ostringstream answer;
  if (const auto status = CommandLine::runOnDesktop(arguments, {*desktop.windows, desktop.trust}, answer)) {
    desktop.x.tellIfLost();
    std::cout << answer.str() << std::flush;
    return status;
  }
  if (arguments.empty() || !CommandParser::isForCommand(arguments.front())) return std::nullopt;
  return runCommandAlone(system, desktop, {arguments.begin(), arguments.end()});
}

Platform platformOf(System& system, X11Desktop& desktop, UserDefaults& userDefaults, Interface& interface,
                    Notifications& notifications) {
  return {.mainQueue = desktop.queue,
          .log = system.log,
          .hotKeys = desktop.hotKeys,
          .userDefaults = userDefaults,
          .windows = desktop.windows,
          .pointer = desktop.pointer,
          .overlay = desktop.overlay,
          .trust = desktop.trust,
          .screenChanges = desktop.displays,
          .bundle = system.bundle,
          .workspace = desktop.workspace,
          .statusItem = interface.statusItem,
          .dialogs = interface.dialogs,
          .settingsWindow = interface.settingsWindow,
          .files = interface.files,
          .login = system.login,
          .updates = interface.updates,
          .words = system.words,
          .desktopReport = desktop.report,
          .systemReport = system.report,
          .notifications = &notifications};
}

int runOnDesktop(System& system, X11Desktop& desktop, qt::QtInstance& instance) {
  qt::QtUserDefaults userDefaults(system.log);
  Interface interface(system, desktop.hotKeys);
  qt::BusNotifications notifications(instance.bus(), desktopEntry);
  Platform platform = platformOf(system, desktop, userDefaults, interface, notifications);
  AppDelegate delegate(platform);
  qt::SocketCommands socket(qt::SocketCommands::pathFor(qEnvironmentVariable("DISPLAY").toStdString()));
  qt::BusCommands bus(instance.bus(), build::version);
  desktop.manager.whenRunning([&] {
    // Whoever sees that the program works can command it; the event loop takes the command.
    delegate.takeCommands({&socket, &bus});
    delegate.start();
    instance.onShowSettings([&delegate] { delegate.showSettings(); });
  });
  return desktop.queue.run();
}

/// What the running instance says to a command that found no socket.
std::optional<CommandReply> askOverBus(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  const auto printLine = [](std::string_view line) { std::cout << line << std::endl; };
  return qt::BusCaller::ask(qEnvironmentVariable("DISPLAY").toStdString(),
                            std::vector<std::string>(argv + 1, argv + argc), printLine);
}

int runApplication(int argc, char** argv, System& system) {
  // Before Qt's own connection, as Qt aborts the process where there is no display.
  x11::X11Connection x(system.log);
  x.onLost([&system] {
    system.log.write(serverHasGone);
    std::_Exit(1);
  });
  // Without a server nothing works, and whatever is said of that, by Qt too, would name another reason.
  const qt::BeforeMessages noticeLoss([&x] { x.tellIfLost(); });
  const qt::FaultWatch faultOfQt([&x] { return x.isLost(); }, serverHasGone);
  // Not earlier: a server that does not answer must not keep the process from being stopped.
  qt::StopSignals::block();
  qputenv("QT_QPA_PLATFORM", "xcb");
  QApplication::setDesktopFileName(desktopEntry);
  const QApplication application(argc, argv);
  QApplication::setApplicationName("Tilwin");
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setWindowIcon(qt::templateIcon(menuBarImage()));
  X11Desktop desktop(system.log, x);
  const Arguments arguments(argv + 1, static_cast<std::size_t>(argc - 1));
  if (const auto status = runModeOrCommand(system, desktop, arguments)) return *status;
  qt::QtInstance instance(qEnvironmentVariable("DISPLAY").toStdString());
  return instance.claim() ? runOnDesktop(system, desktop, instance) : 0;
}

}  // namespace

int main(int argc, char** argv) {
  StandardStreams::secure();
  System system;
  const Arguments arguments(argv, static_cast<std::size_t>(argc));
  const auto status = CommandLine::run(arguments.subspan(1),
                                       {system.bundle, system.login, system.words, system.log}, std::cout);
  if (status) return *status;
  if (argc > 1 && CommandParser::isForCommand(argv[1])) {
    const auto reply =
        CommandRunner::runWithoutDesktop(std::vector<std::string>(argv + 1, argv + argc), build::version);
    // Ended at once, as Qt still closes its connection on a thread that must not see static objects go.
    if (!reply || reply->status == exit_status::needsInstance) {
      if (const auto answer = askOverBus(argc, argv)) std::_Exit(print(*answer));
    }
    if (reply) std::_Exit(print(*reply));
  }
  try {
    return runApplication(argc, argv, system);
  } catch (const x11::X11Unavailable& reason) {
    std::fprintf(stderr, "Tilwin: %s\n", reason.what());
    return 1;
  }
}
