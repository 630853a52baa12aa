#include "platform/macos/system/MessagePortCommands.h"

#include <utility>

#include "core/commands/CommandAnswer.h"
#include "core/commands/CommandWire.h"
#include "platform/macos/support/CFText.h"
#include "platform/macos/system/PortMessage.h"

namespace tilwin::macos {
namespace {

/// Whoever reads too slowly is not waited for.
constexpr CFTimeInterval noPatience = 0;

/// For the system, which releases it.
CFDataRef givenAway(const CFOwned<CFDataRef>& data) {
  return data ? static_cast<CFDataRef>(CFRetain(data.get())) : nullptr;
}

}  // namespace

MessagePortCommands::~MessagePortCommands() {
  if (!port_) return;
  send(port_message::end, "");
  CFMessagePortInvalidate(port_.get());
}

bool MessagePortCommands::serve(Handler handler) {
  handler_ = std::move(handler);
  CFMessagePortContext context{0, this, nullptr, nullptr, nullptr};
  Boolean isTaken = 0;
  auto port = created(CFMessagePortCreateLocal(kCFAllocatorDefault, cfText(commandPort).get(), &received,
                                               &context, &isTaken));
  if (!port || isTaken != 0) return false;
  const auto source = created(CFMessagePortCreateRunLoopSource(kCFAllocatorDefault, port.get(), 0));
  if (!source) return false;
  CFRunLoopAddSource(CFRunLoopGetMain(), source.get(), kCFRunLoopCommonModes);
  port_ = std::move(port);
  return true;
}

void MessagePortCommands::tell(std::string_view line) { send(port_message::line, line); }

void MessagePortCommands::send(SInt32 message, std::string_view bytes) {
  const auto data = dataOf(bytes);
  std::erase_if(watchers_, [&](const auto& watcher) {
    return CFMessagePortSendRequest(watcher.get(), message, data.get(), noPatience, 0, nullptr, nullptr) !=
           kCFMessagePortSuccess;
  });
}

CFDataRef MessagePortCommands::received(CFMessagePortRef, SInt32 message, CFDataRef data, void* self) {
  auto* const commands = static_cast<MessagePortCommands*>(self);
  if (commands == nullptr) return nullptr;
  if (message == port_message::command) return commands->carryOut(bytesOf(data));
  if (message == port_message::watch) return commands->addWatcher(bytesOf(data));
  return nullptr;
}

CFDataRef MessagePortCommands::carryOut(std::string_view request) {
  const auto received = CommandWire::received(request);
  if (received.state != CommandWire::Received::State::complete) return nullptr;
  return givenAway(dataOf(CommandAnswer::bytes(handler_(received.arguments))));
}

CFDataRef MessagePortCommands::addWatcher(std::string_view name) {
  const auto text = cfText(name);
  if (!text || watchers_.size() >= mostWatching) return nullptr;
  auto port = created(CFMessagePortCreateRemote(kCFAllocatorDefault, text.get()));
  if (!port) return nullptr;
  watchers_.push_back(std::move(port));
  return givenAway(dataOf(""));
}

}  // namespace tilwin::macos
