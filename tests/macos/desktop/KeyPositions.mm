#include "tests/macos/desktop/KeyPositions.h"

#import <AppKit/AppKit.h>

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tilwin::macos {
namespace {

struct KeyPosition {
  unsigned keyCode;
  unichar character;
};

/// By key code, from 0.
constexpr std::string_view firstKeys = "asdfhgzxcv\1bqweryt123465=97-80]ou[ip\rlj'k;\\,/nm.\t `";
/// Its key is on other keyboards only.
constexpr unichar onNoKey = 1;

constexpr std::array<KeyPosition, 11> otherKeys{{{51, 0x7f},
                                                 {53, 0x1b},
                                                 {115, NSHomeFunctionKey},
                                                 {116, NSPageUpFunctionKey},
                                                 {117, NSDeleteFunctionKey},
                                                 {119, NSEndFunctionKey},
                                                 {121, NSPageDownFunctionKey},
                                                 {123, NSLeftArrowFunctionKey},
                                                 {124, NSRightArrowFunctionKey},
                                                 {125, NSDownArrowFunctionKey},
                                                 {126, NSUpArrowFunctionKey}}};

}  // namespace

unsigned short keyCodeOf(unichar character) {
  const auto first = std::ranges::find(firstKeys, character);
  if (first != firstKeys.end() && character != onNoKey) {
    return static_cast<unsigned short>(first - firstKeys.begin());
  }
  const auto* const other = std::ranges::find(otherKeys, character, &KeyPosition::character);
  if (other == otherKeys.end()) throw std::logic_error("no key types character " + std::to_string(character));
  return static_cast<unsigned short>(other->keyCode);
}

unichar characterOf(unsigned keyCode) {
  const unichar first = keyCode < firstKeys.size() ? static_cast<unichar>(firstKeys[keyCode]) : onNoKey;
  if (first != onNoKey) return first;
  const auto* const other = std::ranges::find(otherKeys, keyCode, &KeyPosition::keyCode);
  if (other == otherKeys.end()) throw std::logic_error("there is no key " + std::to_string(keyCode));
  return other->character;
}

}  // namespace tilwin::macos
