#include "platform/macos/system/MessagePortCaller.h"

#include <CoreFoundation/CoreFoundation.h>
#include <unistd.h>

#include "core/commands/CommandAnswer.h"
#include "core/commands/CommandWire.h"
#include "platform/macos/support/CFOwned.h"
#include "platform/macos/support/CFText.h"
#include "platform/macos/system/PortMessage.h"

namespace tilwin::macos {
namespace {

constexpr CFTimeInterval sendTimeout = 5;
constexpr CFTimeInterval longestAnswer = 10;

CommandReply unanswered() { return CommandReply::failed(exit_status::couldNot, "Tilwin did not answer."); }

/// The answer; null if there is none.
CFOwned<CFDataRef> request(CFMessagePortRef port, SInt32 message, std::string_view bytes) {
  CFDataRef answer = nullptr;
  CFMessagePortSendRequest(port, message, dataOf(bytes).get(), sendTimeout, longestAnswer,
                           kCFRunLoopDefaultMode, &answer);
  return created(answer);
}

/// A port of this process for the lines.
class Watch {
public:
  explicit Watch(const MessagePortCaller::LineHandler& onLine)
      : onLine_(onLine), name_(std::string(commandPort) + ".watcher" + std::to_string(getpid())) {
    CFMessagePortContext context{0, this, nullptr, nullptr, nullptr};
    port_ = created(
        CFMessagePortCreateLocal(kCFAllocatorDefault, cfText(name_).get(), &received, &context, nullptr));
    if (!port_) return;
    const auto source = created(CFMessagePortCreateRunLoopSource(kCFAllocatorDefault, port_.get(), 0));
    if (source) CFRunLoopAddSource(CFRunLoopGetCurrent(), source.get(), kCFRunLoopDefaultMode);
  }
  Watch(const Watch&) = delete;
  Watch& operator=(const Watch&) = delete;
  ~Watch() {
    if (port_) CFMessagePortInvalidate(port_.get());
  }

  CommandReply run(CFMessagePortRef instance) {
    CFMessagePortSetInvalidationCallBack(instance, &lost);
    if (!port_ || !request(instance, port_message::watch, name_)) {
      return CommandReply::failed(exit_status::couldNot, "Too many programs watch already.");
    }
    CFRunLoopRun();
    return hasEnded_ ? CommandReply::done() : unanswered();
  }

private:
  static CFDataRef received(CFMessagePortRef, SInt32 message, CFDataRef data, void* self) {
    auto* const watch = static_cast<Watch*>(self);
    if (message == port_message::line) watch->onLine_(bytesOf(data));
    if (message == port_message::end) {
      watch->hasEnded_ = true;
      CFRunLoopStop(CFRunLoopGetCurrent());
    }
    return nullptr;
  }
  /// The instance has gone without a word.
  static void lost(CFMessagePortRef, void*) { CFRunLoopStop(CFRunLoopGetCurrent()); }

  const MessagePortCaller::LineHandler& onLine_;
  std::string name_;
  CFOwned<CFMessagePortRef> port_;
  bool hasEnded_ = false;
};

}  // namespace

std::optional<CommandReply> MessagePortCaller::ask(std::span<const std::string> arguments,
                                                   const LineHandler& onLine) {
  const auto bytes = CommandWire::request(arguments);
  if (!bytes) return std::nullopt;
  const auto instance = created(CFMessagePortCreateRemote(kCFAllocatorDefault, cfText(commandPort).get()));
  if (!instance) return std::nullopt;
  const auto answer = request(instance.get(), port_message::command, *bytes);
  const auto reply = CommandAnswer::reply(bytesOf(answer.get()));
  if (!reply) return unanswered();
  return reply->isWatching ? Watch(onLine).run(instance.get()) : *reply;
}

}  // namespace tilwin::macos
