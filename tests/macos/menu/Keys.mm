#include "tests/macos/menu/Keys.h"

#include <string>

#include "platform/macos/support/Text.h"
#include "tests/macos/desktop/KeyPositions.h"

namespace tilwin::macos {

const Key returnKey{.code = 0x24, .characters = @"\r"};
const Key escapeKey{.code = 0x35, .characters = @"\033"};

Key keyOf(char character, NSEventModifierFlags modifiers) {
  return {.code = keyCodeOf(static_cast<unsigned char>(character)),
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
