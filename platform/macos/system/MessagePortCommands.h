#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/macos/support/CFOwned.h"
#include "platform/ports/CommandServer.h"

namespace tilwin::macos {

/// Takes commands over a message port of the user's session, which no other user reaches, by the main run
/// loop. Source: CFMessagePort.h.
class MessagePortCommands final : public CommandServer {
public:
  /// A further watcher is refused.
  static constexpr std::size_t mostWatching = 64;

  MessagePortCommands() = default;
  MessagePortCommands(const MessagePortCommands&) = delete;
  MessagePortCommands& operator=(const MessagePortCommands&) = delete;
  /// Gives up the port; those who watch are told the end.
  ~MessagePortCommands() override;

  bool serve(Handler handler) override;
  void tell(std::string_view line) override;

private:
  static CFDataRef received(CFMessagePortRef port, SInt32 message, CFDataRef data, void* self);
  CFDataRef carryOut(std::string_view request);
  CFDataRef addWatcher(std::string_view name);
  void send(SInt32 message, std::string_view bytes);

  Handler handler_;
  CFOwned<CFMessagePortRef> port_;
  std::vector<CFOwned<CFMessagePortRef>> watchers_;
};

}  // namespace tilwin::macos
