#include "platform/qt/system/QtSystemReport.h"

#include <QDir>
#include <QSysInfo>

#include "platform/qt/QtUserDefaults.h"
#include "platform/qt/commands/SocketCommands.h"

namespace tilwin::qt {

SystemFacts QtSystemReport::facts() {
  using Commands = SystemFacts::Commands;
  const std::string socket = SocketCommands::pathFor(qEnvironmentVariable("DISPLAY").toStdString());
  SystemFacts facts{
      .versions = {{"Tilwin", version_},
                   {"Qt", qVersion()},
                   {"System", QSysInfo::prettyProductName().toStdString()},
                   {"Kernel", (QSysInfo::kernelType() + ' ' + QSysInfo::kernelVersion()).toStdString()},
                   {"Processor", QSysInfo::currentCpuArchitecture().toStdString()}},
      .home = QDir::homePath().toStdString(),
      .settingsFile = QtUserDefaults::file(),
      .commands = socket.empty() ? Commands::noFolder : Commands::socket,
      .session = qEnvironmentVariable("XDG_SESSION_TYPE").toStdString()};
  const bool isNamed = !facts.session.empty();
  facts.isWayland = isNamed ? facts.session == "wayland" : !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
  if (!socket.empty()) facts.socket = socket;
  return facts;
}

}  // namespace tilwin::qt
