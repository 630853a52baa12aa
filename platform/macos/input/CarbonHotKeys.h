#pragma once

#include <cstdint>
#include <map>
#include <memory>

#include "platform/ports/HotKeys.h"

namespace tilwin::macos {

/// Hot keys through Carbon's event manager, the one way of macOS to take a combination from the focused
/// window. Other programs may register the same keys, and are then told of a press as well: what is refused
/// is what this program holds already or another one holds exclusively. The system matches modifiers exactly,
/// leaves the lock keys out and reports no auto-repeat.
///
/// What is registered is given back when this is destroyed, and the event handler with it. Main thread;
/// presses come from the event loop. The system does not say when other programs give combinations back, so
/// the change handler is never called. Source: CarbonEvents.h.
class CarbonHotKeys final : public HotKeys {
public:
  CarbonHotKeys();
  CarbonHotKeys(const CarbonHotKeys&) = delete;
  CarbonHotKeys& operator=(const CarbonHotKeys&) = delete;
  ~CarbonHotKeys() override;

  std::optional<Reference> add(const HotKeySpec& spec, const HotKeyIdentity& identity) override;
  void remove(Reference reference) override;
  void setPressHandler(PressHandler handler) override;
  void setChangeHandler(std::function<void()> handler) override;

private:
  struct Registration;
  struct EventHandler;

  void listen();
  void pressed(std::uint32_t id) const;

  std::map<Reference, std::unique_ptr<const Registration>> registrations_;
  Reference lastReference_ = 0;
  PressHandler handler_;
  std::unique_ptr<EventHandler> eventHandler_;
};

}  // namespace tilwin::macos
