#pragma once

#include <optional>
#include <span>
#include <string>

#include "core/commands/CommandReply.h"

namespace tilwin::qt {

/// Gives commands to the instance of a display over the session bus: for sessions without a runtime folder,
/// in which there is no socket. See `BusCommands`.
struct BusCaller {
  /// Nothing if there is no bus, or nobody on it who takes commands; then nothing was done. Takes 10 seconds
  /// at most. `display` is that of the X server, as in $DISPLAY.
  [[nodiscard]] static std::optional<CommandReply> ask(const std::string& display,
                                                       std::span<const std::string> arguments);
};

}  // namespace tilwin::qt
