#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "core/settings/ShortcutRules.h"
#include "core/settings/TilwinSettings.h"
#include "platform/ports/HotKeys.h"
#include "platform/ports/MainQueue.h"

namespace tilwin {

/// Registers the effective shortcuts as system-wide hot keys and reports each press as the action or area it
/// triggers. Owns its registrations and removes them when destroyed. Main thread only.
class HotKeyCenter {
public:
  using OwnerSet = std::unordered_set<ShortcutOwner>;
  static constexpr int mostWaiting = 16;

  /// The ports must outlive the center.
  HotKeyCenter(HotKeys& hotKeys, MainQueue& mainQueue);
  HotKeyCenter(const HotKeyCenter&) = delete;
  HotKeyCenter& operator=(const HotKeyCenter&) = delete;
  ~HotKeyCenter();

  /// Called for each press, as a task posted to the main queue: after the key event has been processed.
  /// Presses that come while `mostWaiting` wait for their turn are lost; no hand is that much ahead.
  std::function<void(const ShortcutOwner&)> onTarget;

  /// Replaces all registrations by the shortcuts of these settings, actions first, then areas. Returns the
  /// owners whose combination the desktop refused, for example because another program holds it.
  [[nodiscard]] OwnerSet registerShortcuts(const TilwinSettings& settings);
  void unregisterAll();

  struct Press {
    ShortcutOwner owner;
    MainQueue::Seconds received{};  ///< on the clock of `MainQueue::uptime`
    MainQueue::Seconds done{};      ///< when `onTarget` returned

    bool operator==(const Press&) const = default;
  };
  static constexpr std::size_t mostPresses = 20;
  /// The last presses, the oldest first.
  [[nodiscard]] const std::deque<Press>& presses() const { return presses_; }

  /// The next hot-key id; aborts the program on overflow.
  [[nodiscard]] static std::uint32_t idAfter(std::uint32_t id);

private:
  void installHandler();
  void pressed(std::uint32_t id);
  void note(const Press& press);

  HotKeys& hotKeys_;
  MainQueue& mainQueue_;
  std::vector<HotKeys::Reference> refs_;
  std::unordered_map<std::uint32_t, ShortcutOwner> targets_;
  bool handlerInstalled_ = false;
  int waiting_ = 0;
  std::deque<Press> presses_;
  /// Posted tasks hold this weakly, so that they do nothing after this object is destroyed.
  std::shared_ptr<HotKeyCenter*> self_;
};

}  // namespace tilwin
