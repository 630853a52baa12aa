#pragma once

#include <cstdint>
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

/// Turns the shortcuts in force into system-wide hot keys and reports each press as what it triggers. It owns
/// every registration it makes and gives them back when it goes; what a press does is not its affair.
class HotKeyCenter {
public:
  using OwnerSet = std::unordered_set<ShortcutOwner>;

  /// The ports must outlive the center.
  HotKeyCenter(HotKeys& hotKeys, MainQueue& mainQueue);
  HotKeyCenter(const HotKeyCenter&) = delete;
  HotKeyCenter& operator=(const HotKeyCenter&) = delete;
  ~HotKeyCenter();

  /// Called for each press, as a task of the main queue: after the key event has been dealt with.
  std::function<void(const ShortcutOwner&)> onTarget;

  /// Replaces whatever was registered before by the shortcuts of these settings, actions first, then areas.
  /// Returns the owners whose combination the desktop refused.
  [[nodiscard]] OwnerSet registerShortcuts(const TilwinSettings& settings);
  void unregisterAll();

  /// The id that follows; running out of them ends the program.
  [[nodiscard]] static std::uint32_t idAfter(std::uint32_t id);

private:
  void installHandler();
  void pressed(std::uint32_t id);

  HotKeys& hotKeys_;
  MainQueue& mainQueue_;
  std::vector<HotKeys::Reference> refs_;
  std::unordered_map<std::uint32_t, ShortcutOwner> targets_;
  bool handlerInstalled_ = false;
  /// Posted presses hold this weakly, so that one still waiting when the center goes does nothing.
  std::shared_ptr<HotKeyCenter*> self_;
};

}  // namespace tilwin
