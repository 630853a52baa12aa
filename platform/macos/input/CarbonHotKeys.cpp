#include "platform/macos/input/CarbonHotKeys.h"

#include <Carbon/Carbon.h>

#include <algorithm>
#include <utility>

namespace tilwin::macos {
namespace {

/// Virtual key codes have seven bits. The system may register others, which no key ever sends.
constexpr std::uint32_t lastKeyCode = 0x7f;

/// 0 if the event does not tell; no hot key has that id.
std::uint32_t idOfPress(EventRef event) {
  EventHotKeyID identity{};
  GetEventParameter(event, kEventParamDirectObject, typeEventHotKeyID, nullptr, sizeof identity, nullptr,
                    &identity);
  return identity.id;
}

}  // namespace

struct CarbonHotKeys::Registration {
  Registration(EventHotKeyRef hotKey, std::uint32_t identifier) : reference(hotKey), id(identifier) {}
  Registration(const Registration&) = delete;
  Registration& operator=(const Registration&) = delete;
  ~Registration() { UnregisterEventHotKey(reference); }

  EventHotKeyRef reference;
  const std::uint32_t id;
};

struct CarbonHotKeys::EventHandler {
  EventHandler() = default;
  EventHandler(const EventHandler&) = delete;
  EventHandler& operator=(const EventHandler&) = delete;
  ~EventHandler() {
    if (reference != nullptr) RemoveEventHandler(reference);
  }

  /// Always takes the press, so that it ends here.
  static OSStatus handle(EventHandlerCallRef, EventRef event, void* hotKeys) {
    if (event != nullptr && hotKeys != nullptr)
      static_cast<CarbonHotKeys*>(hotKeys)->pressed(idOfPress(event));
    return noErr;
  }

  EventHandlerRef reference = nullptr;
};

CarbonHotKeys::CarbonHotKeys() = default;
CarbonHotKeys::~CarbonHotKeys() = default;

std::optional<HotKeys::Reference> CarbonHotKeys::add(const HotKeySpec& spec, const HotKeyIdentity& identity) {
  if (spec.keyCode > lastKeyCode) return std::nullopt;
  listen();
  EventHotKeyRef hotKey = nullptr;
  const OSStatus status = RegisterEventHotKey(spec.keyCode, spec.modifiers, {identity.signature, identity.id},
                                              GetApplicationEventTarget(), 0, &hotKey);
  if (status != noErr) return std::nullopt;
  registrations_.emplace(++lastReference_, std::make_unique<const Registration>(hotKey, identity.id));
  return lastReference_;
}

void CarbonHotKeys::remove(Reference reference) { registrations_.erase(reference); }

void CarbonHotKeys::setPressHandler(PressHandler handler) { handler_ = std::move(handler); }

void CarbonHotKeys::setChangeHandler(std::function<void()>) {}

/// Asks for presses, once.
void CarbonHotKeys::listen() {
  if (eventHandler_) return;
  auto handler = std::make_unique<EventHandler>();
  const EventTypeSpec presses{kEventClassKeyboard, kEventHotKeyPressed};
  const OSStatus status = InstallEventHandler(GetApplicationEventTarget(), &EventHandler::handle, 1, &presses,
                                              this, &handler->reference);
  if (status == noErr) eventHandler_ = std::move(handler);
}

/// A press may have been on its way when its hot key was removed.
void CarbonHotKeys::pressed(std::uint32_t id) const {
  const bool isRegistered = std::any_of(registrations_.begin(), registrations_.end(),
                                        [id](const auto& each) { return each.second->id == id; });
  // A copy, because the handler may set another one.
  if (const auto handler = handler_; handler && isRegistered) handler(id);
}

}  // namespace tilwin::macos
