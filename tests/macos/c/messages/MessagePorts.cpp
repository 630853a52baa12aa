#include "tests/macos/c/messages/MessagePorts.h"

#include <algorithm>
#include <utility>

#include "tests/macos/c/messages/RunLoop.h"
#include "tests/macos/c/objects/CountedObjects.h"
#include "tests/macos/c/objects/Values.h"

namespace tilwin::macos::c {

/// One end of a connection: the one that receives, or one that sends.
class PortObject final : public CountedObject {
public:
  PortObject(std::string called, bool receives) : name(std::move(called)), isLocal(receives) {
    MessagePorts::shared().add(*this);
  }
  PortObject(const PortObject&) = delete;
  PortObject& operator=(const PortObject&) = delete;
  ~PortObject() override { MessagePorts::shared().remove(*this); }

  [[nodiscard]] CFTypeID type() const override { return 500; }
  [[nodiscard]] std::string description() const override { return "message port \"" + name + "\""; }
  void end() override { isValid = false; }

  const std::string name;
  const bool isLocal;
  bool isValid = true;
  CFMessagePortCallBack callBack = nullptr;
  void* info = nullptr;
  CFTypeRef source = nullptr;  ///< in a run loop that retains it
  CFMessagePortInvalidationCallBack onInvalid = nullptr;
};

namespace {

class SourceObject final : public CountedObject {
public:
  explicit SourceObject(PortObject* from) : port(from) {}

  [[nodiscard]] CFTypeID type() const override { return 501; }
  [[nodiscard]] std::string description() const override { return "run loop source"; }

  PortObject* const port;
};

CFMessagePortRef referenceToPort(CFTypeRef object) {
  return reinterpret_cast<CFMessagePortRef>(const_cast<void*>(object));
}

/// The address of an object is its reference.
CFMessagePortRef referenceToPort(PortObject& port) {
  return referenceToPort(static_cast<CFTypeRef>(static_cast<CountedObject*>(&port)));
}

bool isHeard(const PortObject& port) { return port.source != nullptr && RunLoop::shared().has(port.source); }

}  // namespace

MessagePorts& MessagePorts::shared() {
  static MessagePorts ports;
  return ports;
}

PortObject* MessagePorts::local(const std::string& name) const {
  const auto found = std::ranges::find_if(
      ports_, [&](const PortObject* port) { return port->isLocal && port->isValid && port->name == name; });
  return found == ports_.end() ? nullptr : *found;
}

void MessagePorts::invalidateRemotes(const std::string& name) {
  // A copy, as whoever hears of it may let go of ports.
  for (auto ports = ports_; PortObject * port : ports) {
    if (port->isLocal || !port->isValid || port->name != name) continue;
    port->isValid = false;
    if (port->onInvalid != nullptr) port->onInvalid(referenceToPort(*port), port->info);
  }
}

}  // namespace tilwin::macos::c

using namespace tilwin::macos::c;

extern "C" {

CFMessagePortRef CFMessagePortCreateLocal(CFAllocatorRef, CFStringRef name, CFMessagePortCallBack callBack,
                                          CFMessagePortContext* context, Boolean* shouldFreeInfo) {
  const std::string text = utf8Of(name, "CFMessagePortCreateLocal");
  if (MessagePorts::shared().isElsewhere(text)) return nullptr;
  PortObject* const there = MessagePorts::shared().local(text);
  if (shouldFreeInfo != nullptr) *shouldFreeInfo = there != nullptr ? 1 : 0;
  if (there != nullptr) {
    CFRetain(referenceToPort(*there));
    return referenceToPort(*there);
  }
  const auto reference = referenceToPort(objects().make<PortObject>(text, true));
  auto* const port = objects().used<PortObject>(reference, "CFMessagePortCreateLocal");
  port->callBack = callBack;
  if (context != nullptr) port->info = context->info;
  return reference;
}

CFMessagePortRef CFMessagePortCreateRemote(CFAllocatorRef, CFStringRef name) {
  const std::string text = utf8Of(name, "CFMessagePortCreateRemote");
  const auto& ports = MessagePorts::shared();
  if (ports.local(text) == nullptr && !ports.isElsewhere(text)) return nullptr;
  return referenceToPort(objects().make<PortObject>(text, false));
}

CFRunLoopSourceRef CFMessagePortCreateRunLoopSource(CFAllocatorRef, CFMessagePortRef local, CFIndex) {
  auto* const port = objects().used<PortObject>(local, "CFMessagePortCreateRunLoopSource");
  if (port == nullptr || !port->isLocal || !port->isValid) return nullptr;
  port->source = objects().make<SourceObject>(port);
  return reinterpret_cast<CFRunLoopSourceRef>(const_cast<void*>(port->source));
}

void CFMessagePortSetInvalidationCallBack(CFMessagePortRef port, CFMessagePortInvalidationCallBack callBack) {
  auto* const used = objects().used<PortObject>(port, "CFMessagePortSetInvalidationCallBack");
  if (used != nullptr) used->onInvalid = callBack;
}

void CFMessagePortInvalidate(CFMessagePortRef port) {
  auto* const used = objects().used<PortObject>(port, "CFMessagePortInvalidate");
  if (used == nullptr || !used->isValid) return;
  used->isValid = false;
  if (used->source != nullptr) RunLoop::shared().remove(std::exchange(used->source, nullptr));
  if (used->isLocal) MessagePorts::shared().invalidateRemotes(used->name);
}

SInt32 CFMessagePortSendRequest(CFMessagePortRef remote, SInt32 message, CFDataRef data, CFTimeInterval,
                                CFTimeInterval, CFStringRef replyMode, CFDataRef* answer) {
  const auto* const port = objects().used<PortObject>(remote, "CFMessagePortSendRequest");
  if (port == nullptr || port->isLocal || !port->isValid) return kCFMessagePortIsInvalid;
  PortObject* const local = MessagePorts::shared().local(port->name);
  if (local == nullptr) return kCFMessagePortReceiveTimeout;
  if (!isHeard(*local)) return kCFMessagePortSendTimeout;
  const CFDataRef said = local->callBack(referenceToPort(*local), message, data, local->info);
  if (replyMode != nullptr && answer != nullptr) {
    *answer = said;
  } else if (said != nullptr) {
    CFRelease(said);
  }
  return kCFMessagePortSuccess;
}

}  // extern "C"
