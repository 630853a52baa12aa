#include "tests/macos/menu/Keys.h"

#include <string>

#include "platform/macos/support/Text.h"

namespace tilwin::macos {

const Key returnKey{.code = 0x24, .characters = @"\r"};
const Key escapeKey{.code = 0x35, .characters = @"\033"};

Key keyOf(char character, NSEventModifierFlags modifiers) {
  // By the position on a Mac keyboard, from 0x00.
  constexpr std::string_view positions = "asdfhgzxcv\1bqweryt123465=97-80]ou[ip\rlj'k;\\,/nm.\t `";
  const auto position = positions.find(character);
  return {.code = static_cast<unsigned short>(position),
          .characters = text(std::string(1, character)),
          .modifiers = modifiers};
}

void press(const Key& key) {
  NSWindow* const dialog = [NSApp modalWindow];
  const NSInteger window = [dialog == nil ? [NSApp keyWindow] : dialog windowNumber];
  const bool isCapital = (key.modifiers & NSShiftKeyMask) != 0;
  NSString* const characters = isCapital ? [key.characters uppercaseString] : key.characters;
  for (const auto type : {NSKeyDown, NSKeyUp}) {
    NSEvent* const event = [NSEvent keyEventWithType:type
                                            location:NSZeroPoint
                                       modifierFlags:key.modifiers
                                           timestamp:0
                                        windowNumber:window
                                             context:nil
                                          characters:characters
                         charactersIgnoringModifiers:characters
                                           isARepeat:NO
                                             keyCode:key.code];
    [NSApp postEvent:event atStart:NO];
  }
}

}  // namespace tilwin::macos
