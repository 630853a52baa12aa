#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "core/commands/CommandReply.h"

namespace tilwin::macos {

/// Gives commands to the running instance; see `MessagePortCommands`.
struct MessagePortCaller {
  using LineHandler = std::function<void(std::string_view line)>;

  /// Nothing if no instance takes commands; then nothing was done. Takes 10 seconds at most, except to watch:
  /// then it calls `onLine` for each line, from the current run loop, until the instance ends.
  [[nodiscard]] static std::optional<CommandReply> ask(std::span<const std::string> arguments,
                                                       const LineHandler& onLine);
};

}  // namespace tilwin::macos
