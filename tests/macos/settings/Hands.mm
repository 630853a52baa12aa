#include "tests/macos/settings/Hands.h"

#include <array>
#include <cctype>
#include <chrono>
#include <utility>

#include "platform/macos/support/Held.h"
#include "tests/macos/desktop/KeyPositions.h"
#include "tests/macos/settings/Playing.h"

namespace tilwin::macos {
namespace {

constexpr std::array<std::pair<std::uint32_t, NSEventModifierFlags>, 4> modifierFlags{{
    {HotKeySpec::cmd, NSEventModifierFlagCommand},
    {HotKeySpec::shift, NSEventModifierFlagShift},
    {HotKeySpec::option, NSEventModifierFlagOption},
    {HotKeySpec::control, NSEventModifierFlagControl},
}};

/// Characters from here on stand for keys that type nothing.
constexpr unichar firstFunctionKey = 0xf700;

NSEventModifierFlags flagsOf(std::uint32_t modifiers, bool capsLock) {
  NSEventModifierFlags flags = capsLock ? NSAlphaShiftKeyMask : 0;
  for (const auto& [bit, flag] : modifierFlags) {
    if ((modifiers & bit) != 0) flags |= flag;
  }
  return flags;
}

unichar typedBy(std::uint32_t keyCode, bool shifted) {
  const unichar character = characterOf(keyCode);
  return shifted && character <= 0x7f ? static_cast<unichar>(std::toupper(character)) : character;
}

NSTimeInterval uptime() {
  return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

}  // namespace

NSEvent* Hands::mouse(NSEventType type, NSPoint inWindow) const {
  return [NSEvent mouseEventWithType:type
                            location:inWindow
                       modifierFlags:0
                           timestamp:uptime()
                        windowNumber:[window_ windowNumber]
                             context:[window_ graphicsContext]
                         eventNumber:0
                          clickCount:1
                            pressure:1];
}

void Hands::click(NSPoint inWindow) const {
  drag({[inWindow] { return inWindow; }});
}

void Hands::drag(const std::vector<Spot>& way) const {
  const AutoreleasePool pool;
  std::vector<Happening> events{[&] { return mouse(NSLeftMouseDown, way.front()()); }};
  for (std::size_t index = 1; index < way.size(); ++index) {
    events.emplace_back([&, index] { return mouse(NSLeftMouseDragged, way[index]()); });
  }
  events.emplace_back([&] { return mouse(NSLeftMouseUp, way.back()()); });
  play(std::move(events));
}

void Hands::buttonDown(NSPoint inWindow) const {
  play({[&] { return mouse(NSLeftMouseDown, inWindow); }});
}

void Hands::moveHolding(NSPoint inWindow) const {
  play({[&] { return mouse(NSLeftMouseDragged, inWindow); }});
}

void Hands::buttonUp(NSPoint inWindow) const {
  play({[&] { return mouse(NSLeftMouseUp, inWindow); }});
}

NSEvent* Hands::key(NSEventType type, const HotKeySpec& keys, bool capsLock, bool repeats) const {
  const bool shifted = (keys.modifiers & HotKeySpec::shift) != 0;
  const unichar character = typedBy(keys.keyCode, shifted || capsLock);
  const unichar plain = typedBy(keys.keyCode, shifted);
  return [NSEvent keyEventWithType:type
                          location:NSZeroPoint
                     modifierFlags:flagsOf(keys.modifiers, capsLock) |
                                   (plain >= firstFunctionKey ? NSFunctionKeyMask : 0)
                         timestamp:uptime()
                      windowNumber:[window_ windowNumber]
                           context:[window_ graphicsContext]
                        characters:[NSString stringWithCharacters:&character length:1]
       charactersIgnoringModifiers:[NSString stringWithCharacters:&plain length:1]
                         isARepeat:repeats
                           keyCode:static_cast<unsigned short>(keys.keyCode)];
}

void Hands::pressKeys(const HotKeySpec& keys, bool capsLock, int repeats) const {
  const AutoreleasePool pool;
  std::vector<Happening> events{[&] { return key(NSKeyDown, keys, capsLock, false); }};
  for (int time = 0; time < repeats; ++time) {
    events.emplace_back([&] { return key(NSKeyDown, keys, capsLock, true); });
  }
  events.emplace_back([&] { return key(NSKeyUp, keys, capsLock, false); });
  play(std::move(events));
}

NSEvent* Hands::flagsChanged(unsigned short keyCode, NSEventModifierFlags flags) const {
  return [NSEvent keyEventWithType:NSFlagsChanged
                          location:NSZeroPoint
                     modifierFlags:flags
                         timestamp:uptime()
                      windowNumber:[window_ windowNumber]
                           context:[window_ graphicsContext]
                        characters:@""
       charactersIgnoringModifiers:@""
                         isARepeat:NO
                           keyCode:keyCode];
}

void Hands::pressModifiersAlone() const {
  const AutoreleasePool pool;
  constexpr std::array<unsigned short, 4> keyCodes{55, 56, 58, 59};
  std::vector<Happening> events;
  for (std::size_t index = 0; index < keyCodes.size(); ++index) {
    events.emplace_back(
        [&, index] { return flagsChanged(keyCodes.at(index), modifierFlags.at(index).second); });
    events.emplace_back([&, index] { return flagsChanged(keyCodes.at(index), 0); });
  }
  play(std::move(events));
}

void Hands::type(char character) const { pressKeys({keyCodeOf(static_cast<unichar>(character)), 0}); }

}  // namespace tilwin::macos
