#include "app/commands/CommandsAlone.h"

#include <variant>

#include "app/commands/CommandRunner.h"
#include "app/settings/ControllerSettings.h"

namespace tilwin {

CommandsAlone::Result CommandsAlone::run(const Ports& ports, std::span<const std::string> arguments) {
  SettingsStore store(ports.userDefaults, &ports.log);
  SnapController controller(ports.windows);
  handTo(controller, store.settings.get());
  LayoutKeeper layouts({ports.mainQueue, ports.trust, ports.bundle, ports.log}, ports.windows, controller);
  layouts.load();
  Doctor doctor({store, ports.userDefaults, *ports.windows, ports.trust, ports.bundle, ports.desktopReport,
                 ports.systemReport, ports.words});
  CommandRunner runner(
      {store, controller, layouts, *ports.windows, ports.trust, ports.workspace, ports.words, doctor});
  const auto parsed = CommandParser::parse(arguments);
  const auto* const request = std::get_if<CommandRequest>(&parsed);
  const bool movesWindows = request != nullptr && CommandTable::spec(request->command).movesWindows;
  return {runner.run(arguments), movesWindows};
}

}  // namespace tilwin
