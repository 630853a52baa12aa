#include "tests/macos/c/keyboard/EventManager.h"

#include <algorithm>
#include <cstring>

#include "tests/macos/c/keyboard/CarbonKeyboard.h"
#include "tests/macos/c/objects/CountedObjects.h"

namespace tilwin::macos::c {
namespace {

constexpr std::uint32_t allModifiers =
    HotKeySpec::cmd | HotKeySpec::shift | HotKeySpec::option | HotKeySpec::control;

template <typename Reference>
Reference referenceTo(CFTypeRef object) {
  return reinterpret_cast<Reference>(const_cast<void*>(object));
}

/// The event manager forgets an object that is destroyed, also one that was never given back. Neither is an
/// object of Core Foundation, but each has one owner.
template <typename Reference>
class ManagedObject : public CountedObject {
public:
  ManagedObject() = default;
  ManagedObject(const ManagedObject&) = delete;
  ManagedObject& operator=(const ManagedObject&) = delete;
  ~ManagedObject() override {
    EventManager::shared().remove(referenceTo<Reference>(static_cast<CountedObject*>(this)));
  }
};

class HandlerObject final : public ManagedObject<EventHandlerRef> {
public:
  HandlerObject(EventHandlerUPP runs, std::vector<EventTypeSpec> of, void* with)
      : function(runs), types(std::move(of)), userData(with) {}

  [[nodiscard]] CFTypeID type() const override { return 400; }
  [[nodiscard]] std::string description() const override { return "event handler"; }

  const EventHandlerUPP function;
  const std::vector<EventTypeSpec> types;
  void* const userData;
};

class HotKeyObject final : public ManagedObject<EventHotKeyRef> {
public:
  HotKeyObject(const HotKeySpec& of, EventHotKeyID as) : spec(of), identity(as) {}

  [[nodiscard]] CFTypeID type() const override { return 401; }
  [[nodiscard]] std::string description() const override { return "hot key " + std::to_string(identity.id); }

  const HotKeySpec spec;
  const EventHotKeyID identity;
};

bool handles(const HandlerObject& handler, const Event& event) {
  return std::any_of(handler.types.begin(), handler.types.end(), [&](const EventTypeSpec& type) {
    return type.eventClass == event.eventClass && type.eventKind == event.kind;
  });
}

}  // namespace

EventManager& EventManager::shared() {
  static EventManager manager;
  return manager;
}

std::optional<EventHotKeyID> EventManager::identityOf(const HotKeySpec& spec) const {
  for (auto* const reference : hotKeys_) {
    const auto* const hotKey = objects().used<HotKeyObject>(reference, "the event manager");
    if (hotKey == nullptr || hotKey->spec.keyCode != spec.keyCode) continue;
    if ((hotKey->spec.modifiers & allModifiers) == (spec.modifiers & allModifiers)) return hotKey->identity;
  }
  return std::nullopt;
}

bool EventManager::hasHandler(EventHandlerUPP function, const void* userData) const {
  return std::any_of(handlers_.begin(), handlers_.end(), [&](EventHandlerRef reference) {
    const auto* const handler = objects().used<HandlerObject>(reference, "the event manager");
    return handler != nullptr && handler->function == function && handler->userData == userData;
  });
}

OSStatus EventManager::send(const Event& event) const {
  // A copy, because a handler may remove itself.
  auto handlers = handlers_;
  std::reverse(handlers.begin(), handlers.end());
  Event sent = event;
  for (auto* const reference : handlers) {
    const auto* const handler = objects().used<HandlerObject>(reference, "the event manager");
    if (handler == nullptr || !handles(*handler, event)) continue;
    const OSStatus answer = handler->function(nullptr, reinterpret_cast<EventRef>(&sent), handler->userData);
    if (answer != eventNotHandledErr) return answer;
  }
  return eventNotHandledErr;
}

}  // namespace tilwin::macos::c

using namespace tilwin::macos::c;

extern "C" {

EventTargetRef GetApplicationEventTarget() {
  return reinterpret_cast<EventTargetRef>(&EventManager::shared());
}

OSStatus InstallEventHandler(EventTargetRef target, EventHandlerUPP function, ItemCount typeCount,
                             const EventTypeSpec* types, void* userData, EventHandlerRef* handler) {
  if (target != GetApplicationEventTarget() || function == nullptr) return paramErr;
  auto* const keyboard = CarbonKeyboard::current();
  if (keyboard != nullptr && keyboard->refusesHandlers) return paramErr;
  if (EventManager::shared().hasHandler(function, userData)) return eventHandlerAlreadyInstalledErr;
  const auto reference = referenceTo<EventHandlerRef>(objects().make<HandlerObject>(
      function, std::vector<EventTypeSpec>(types, types + typeCount), userData));
  EventManager::shared().add(reference);
  if (handler != nullptr) *handler = reference;
  return noErr;
}

OSStatus RemoveEventHandler(EventHandlerRef handler) {
  EventManager::shared().remove(handler);
  CFRelease(handler);
  return noErr;
}

OSStatus RegisterEventHotKey(UInt32 keyCode, UInt32 modifiers, EventHotKeyID id, EventTargetRef target,
                             OptionBits, EventHotKeyRef* hotKey) {
  const tilwin::HotKeySpec spec{keyCode, modifiers};
  if (target != GetApplicationEventTarget() || hotKey == nullptr) return paramErr;
  auto* const keyboard = CarbonKeyboard::current();
  const bool isHeld = keyboard != nullptr && keyboard->isHeldElsewhere(spec);
  if (isHeld || EventManager::shared().identityOf(spec)) return eventHotKeyExistsErr;
  *hotKey = referenceTo<EventHotKeyRef>(objects().make<HotKeyObject>(spec, id));
  EventManager::shared().add(*hotKey);
  return noErr;
}

OSStatus UnregisterEventHotKey(EventHotKeyRef hotKey) {
  EventManager::shared().remove(hotKey);
  CFRelease(hotKey);
  return noErr;
}

OSStatus GetEventParameter(EventRef event, EventParamName name, EventParamType type,
                           EventParamType* actualType, ByteCount capacity, ByteCount* actualSize,
                           void* data) {
  const auto* const sent = reinterpret_cast<const Event*>(event);
  const bool isKnown =
      name == kEventParamDirectObject && type == typeEventHotKeyID && sent->hotKey.has_value();
  if (!isKnown) return eventParameterNotFoundErr;
  if (data != nullptr) std::memcpy(data, &*sent->hotKey, std::min(capacity, ByteCount{sizeof *sent->hotKey}));
  if (actualType != nullptr) *actualType = type;
  if (actualSize != nullptr) *actualSize = sizeof *sent->hotKey;
  return noErr;
}

}  // extern "C"
