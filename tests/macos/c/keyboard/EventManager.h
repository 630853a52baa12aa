#pragma once

#include <Carbon/Carbon.h>

#include <optional>
#include <vector>

#include "core/settings/HotKeySpec.h"

namespace tilwin::macos::c {

struct Event {
  OSType eventClass = 0;
  UInt32 kind = 0;
  std::optional<EventHotKeyID> hotKey{};
};

/// The handlers and hot keys that this process has with the event manager.
class EventManager {
public:
  static EventManager& shared();

  void add(EventHandlerRef handler) { handlers_.push_back(handler); }
  void remove(EventHandlerRef handler) { std::erase(handlers_, handler); }
  void add(EventHotKeyRef hotKey) { hotKeys_.push_back(hotKey); }
  void remove(EventHotKeyRef hotKey) { std::erase(hotKeys_, hotKey); }

  /// The hot key of this process with exactly this combination, lock keys left out.
  [[nodiscard]] std::optional<EventHotKeyID> identityOf(const HotKeySpec& spec) const;
  [[nodiscard]] bool hasHandler(EventHandlerUPP function, const void* userData) const;
  /// Hands the event to the handlers, the last one first, until one takes it. Returns the last answer.
  OSStatus send(const Event& event) const;

private:
  std::vector<EventHandlerRef> handlers_;
  std::vector<EventHotKeyRef> hotKeys_;
};

}  // namespace tilwin::macos::c
