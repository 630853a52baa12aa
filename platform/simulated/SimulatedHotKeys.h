#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <vector>

#include "core/settings/HotKeySpec.h"
#include "platform/ports/HotKeys.h"

namespace tilwin {

/// The keyboard of a simulated desktop: who holds which combination, and what happens when keys go down.
class SimulatedHotKeys final : public HotKeys {
public:
  struct Registration {
    Reference reference = 0;
    HotKeySpec spec;
    HotKeyIdentity identity;

    bool operator==(const Registration&) const = default;
  };

  /// Another program takes or gives back a combination. Taking one that the program holds already has no
  /// effect on it.
  void holdElsewhere(const HotKeySpec& spec);
  void letGoElsewhere(const HotKeySpec& spec);
  /// From now on this keyboard has no such key.
  void removeKey(std::uint32_t keyCode);

  /// Lights of the keyboard; the events of all keys carry them.
  void setLocks(bool capsLock, bool numLock);
  /// The key goes down with these modifiers held, or repeats when it is down already. True when the program
  /// took the event; otherwise it would reach the window with the focus.
  bool keyDown(const HotKeySpec& spec);
  void keyUp(std::uint32_t keyCode);
  /// Down and up again.
  bool press(const HotKeySpec& spec);
  /// A press that the program learns of by an id alone, registered or not.
  void deliver(std::uint32_t id);

  /// What is registered now, in the order it was.
  [[nodiscard]] const std::vector<Registration>& registrations() const { return registrations_; }
  /// References given back, in that order, those that were not registered included.
  [[nodiscard]] const std::vector<Reference>& removals() const { return removals_; }
  [[nodiscard]] bool hasHandler() const { return handler_ != nullptr; }
  [[nodiscard]] int handlerInstallations() const { return handlerInstallations_; }

private:
  std::optional<Reference> add(const HotKeySpec& spec, const HotKeyIdentity& identity) override;
  void remove(Reference reference) override;
  void setPressHandler(PressHandler handler) override;

  [[nodiscard]] bool hasKey(std::uint32_t keyCode) const;
  [[nodiscard]] const Registration* registered(const HotKeySpec& spec) const;

  std::vector<HotKeySpec> heldElsewhere_;
  std::set<std::uint32_t> missingKeys_;
  std::set<std::uint32_t> keysDown_;
  std::uint32_t locks_ = 0;  ///< modifier bits of an event
  std::vector<Registration> registrations_;
  std::vector<Reference> removals_;
  PressHandler handler_;
  Reference lastReference_ = 0;
  int handlerInstallations_ = 0;
};

}  // namespace tilwin
