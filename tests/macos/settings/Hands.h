#pragma once

#import <AppKit/AppKit.h>

#include <functional>
#include <vector>

#include "core/settings/HotKeySpec.h"

namespace tilwin::macos {

/// The mouse and the keyboard of a user, as AppKit gets them from the window server. Calls return when their
/// events have been handled, also in loops of their own such as that of a pressed button.
class Hands {
public:
  explicit Hands(NSWindow* window) : window_(window) {}

  void click(NSPoint inWindow) const;
  /// A point in the window, asked for when the mouse gets there.
  using Spot = std::function<NSPoint()>;
  /// Presses the button at the first spot, moves on to each other, and lets go at the last.
  void drag(const std::vector<Spot>& way) const;
  void buttonDown(NSPoint inWindow) const;
  void moveHolding(NSPoint inWindow) const;
  void buttonUp(NSPoint inWindow) const;

  /// Presses and releases a key; `repeats` times more the key comes again while it is held.
  void pressKeys(const HotKeySpec& keys, bool capsLock = false, int repeats = 0) const;
  void pressModifiersAlone() const;
  /// What a key types without modifiers; throws std::logic_error if none does.
  void type(char character) const;

private:
  [[nodiscard]] NSEvent* mouse(NSEventType type, NSPoint inWindow) const;
  [[nodiscard]] NSEvent* key(NSEventType type, const HotKeySpec& keys, bool capsLock, bool repeats) const;
  [[nodiscard]] NSEvent* flagsChanged(unsigned short keyCode, NSEventModifierFlags flags) const;

  NSWindow* window_;
};

}  // namespace tilwin::macos
