#pragma once

#include <Carbon/Carbon.h>

#include <cstdint>
#include <optional>
#include <set>
#include <vector>

#include "core/settings/HotKeySpec.h"

namespace tilwin::macos::c {

/// The keyboard of a user and the other programs that hold hot keys, as the event manager has them as long as
/// this exists. Presses wait until the event loop runs. One at a time.
class CarbonKeyboard {
public:
  CarbonKeyboard();
  CarbonKeyboard(const CarbonKeyboard&) = delete;
  CarbonKeyboard& operator=(const CarbonKeyboard&) = delete;
  ~CarbonKeyboard();

  /// The one that exists; null if none does.
  static CarbonKeyboard* current();

  /// A press of a key with these modifiers and no others; if the key is down already, it repeats.
  void keyDown(const HotKeySpec& spec);
  void keyUp(std::uint32_t keyCode) { keysDown_.erase(keyCode); }
  void press(const HotKeySpec& spec);
  /// The lock keys, which no hot key can have.
  void setLocks(bool capsLock, bool numLock);
  /// Another program registers the combination for itself alone, or gives it back.
  void holdElsewhere(const HotKeySpec& spec) { heldElsewhere_.push_back(spec); }
  void letGoElsewhere(const HotKeySpec& spec);
  /// Whether the event manager refuses handlers.
  bool refusesHandlers = false;

  /// A press that names this hot key, registered or not, or none.
  void post(std::optional<EventHotKeyID> identity) { pending_.push_back(identity); }
  /// Hands the presses that wait to the handlers of the application.
  void runEventLoop();
  /// What the handlers answered to each press since the last call.
  [[nodiscard]] std::vector<OSStatus> takeAnswers();

  /// What follows is for the event manager.
  [[nodiscard]] bool isHeldElsewhere(const HotKeySpec& spec) const;

private:
  std::vector<HotKeySpec> heldElsewhere_;
  std::set<std::uint32_t> keysDown_;
  std::uint32_t locks_ = 0;  ///< modifier bits of an event
  std::vector<std::optional<EventHotKeyID>> pending_;
  std::vector<OSStatus> answers_;
};

}  // namespace tilwin::macos::c
