#include "tests/macos/desktop/KeyPositions.h"

#import <AppKit/AppKit.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <utility>

namespace tilwin::macos {

TEST(KeyPositions, AreThoseOfAMacKeyboard) {
  for (const auto& [keyCode, character] : {std::pair<unsigned short, unichar>{0, 'a'},
                                           {18, '1'},
                                           {36, '\r'},
                                           {47, '.'},
                                           {50, '`'},
                                           {53, 0x1b},
                                           {126, NSUpArrowFunctionKey}}) {
    EXPECT_EQ(keyCodeOf(character), keyCode);
    EXPECT_EQ(characterOf(keyCode), character);
  }
}

TEST(KeyPositions, WhatIsOnNoKeyIsRefused) {
  for (const unichar character : {u'A', u'\1', u'ä', u'\0'}) {
    EXPECT_THROW((void)keyCodeOf(character), std::logic_error) << character;
  }
  for (const unsigned keyCode : {10U, 52U, 0xffffU}) {
    EXPECT_THROW((void)characterOf(keyCode), std::logic_error) << keyCode;
  }
}

}  // namespace tilwin::macos
