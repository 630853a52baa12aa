#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "core/commands/CommandReply.h"

namespace tilwin::qt {

/// Gives commands to the instance of a display over the session bus: for sessions without a runtime folder,
/// in which there is no socket. See `BusCommands`.
struct BusCaller {
  using LineHandler = std::function<void(std::string_view line)>;

  /// Nothing if there is no bus, or nobody on it who takes commands; then nothing was done. Takes 10 seconds
  /// at most, except to watch: then it calls `onLine` for each line, from an event loop, until the instance
  /// or the bus ends. `display` is that of the X server, as in $DISPLAY. Needs a `QCoreApplication`.
  [[nodiscard]] static std::optional<CommandReply> ask(const std::string& display,
                                                       std::span<const std::string> arguments,
                                                       const LineHandler& onLine);
};

}  // namespace tilwin::qt
