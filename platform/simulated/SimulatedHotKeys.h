#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <utility>
#include <vector>

#include "core/settings/HotKeySpec.h"
#include "platform/ports/HotKeys.h"

namespace tilwin {

/// The keyboard of a simulated desktop. A test presses keys and lets other programs hold combinations.
class SimulatedHotKeys final : public HotKeys {
public:
  struct Registration {
    Reference reference = 0;
    HotKeySpec spec;
    HotKeyIdentity identity;

    bool operator==(const Registration&) const = default;
  };

  /// Another program registers the combination. If the program under test has registered it before, that
  /// registration stays.
  void holdElsewhere(const HotKeySpec& spec);
  /// The other program unregisters the combination.
  void letGoElsewhere(const HotKeySpec& spec);
  /// Tells the program that other combinations may be free or refused than before.
  void tellChange() {
    // A copy, because the handler may set another one.
    if (const auto handler = onChange_) handler();
  }
  /// Removes a key from this keyboard.
  void removeKey(std::uint32_t keyCode);

  /// Sets the lock keys, whose state is part of every key event.
  void setLocks(bool capsLock, bool numLock);
  /// Presses the key with these modifiers held; if it is already down, it auto-repeats. Returns true if the
  /// combination is registered; otherwise the event would reach the focused window.
  bool keyDown(const HotKeySpec& spec);
  void keyUp(std::uint32_t keyCode);
  /// `keyDown`, then `keyUp`; returns the result of `keyDown`.
  bool press(const HotKeySpec& spec);
  /// Calls the press handler with this id, whether it is registered or not.
  void deliver(std::uint32_t id);

  /// The present registrations, oldest first.
  [[nodiscard]] const std::vector<Registration>& registrations() const { return registrations_; }
  /// All references given to `remove`, in that order, including those that were not registered.
  [[nodiscard]] const std::vector<Reference>& removals() const { return removals_; }
  [[nodiscard]] bool hasHandler() const { return handler_ != nullptr; }
  [[nodiscard]] int handlerInstallations() const { return handlerInstallations_; }

private:
  std::optional<Reference> add(const HotKeySpec& spec, const HotKeyIdentity& identity) override;
  void remove(Reference reference) override;
  void setPressHandler(PressHandler handler) override;
  void setChangeHandler(std::function<void()> handler) override { onChange_ = std::move(handler); }

  [[nodiscard]] bool hasKey(std::uint32_t keyCode) const;
  [[nodiscard]] const Registration* registered(const HotKeySpec& spec) const;

  std::vector<HotKeySpec> heldElsewhere_;
  std::set<std::uint32_t> missingKeys_;
  std::set<std::uint32_t> keysDown_;
  std::uint32_t locks_ = 0;  ///< modifier bits of an event
  std::vector<Registration> registrations_;
  std::vector<Reference> removals_;
  PressHandler handler_;
  std::function<void()> onChange_;
  Reference lastReference_ = 0;
  int handlerInstallations_ = 0;
};

}  // namespace tilwin
