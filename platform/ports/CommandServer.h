#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "core/commands/CommandReply.h"

namespace tilwin {

/// Takes commands from other processes of the same user, as long as it lives. Nobody else's are heard.
class CommandServer {
public:
  /// The arguments as `tilwin` was called with them, without the program's name.
  using Handler = std::function<CommandReply(std::span<const std::string> arguments)>;

  CommandServer() = default;
  CommandServer(const CommandServer&) = delete;
  CommandServer& operator=(const CommandServer&) = delete;
  virtual ~CommandServer() = default;

  /// Calls the handler for each command, from the main queue and one at a time. Returns false if commands
  /// cannot be taken here, for example because another instance takes them; then none will come.
  virtual bool serve(Handler handler) = 0;
  /// Hands a line, which has no end yet, to everybody whose command was answered with `isWatching`. Whoever
  /// does not read what comes is hung up on.
  virtual void tell(std::string_view line) = 0;
};

}  // namespace tilwin
