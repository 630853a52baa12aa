#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tests/core/Arbitrary.h"

namespace tilwin {

using Texts = std::vector<std::string>;

/// Ill-formed UTF-8, one example of each kind.
inline const std::vector<std::string>& illFormedTexts() {
  static const std::vector<std::string> texts{
      "\x80",                      // a continuation without a beginning
      "\xBF\xBF",                  // two
      "\xC0\x80",                  // overlong NUL
      "\xC1\xBF",                  // overlong DEL
      "\xE0\x80\x80",              // overlong in three bytes
      "\xF0\x8F\xBF\xBF",          // overlong in four bytes
      "\xC3",                      // é, truncated
      "\xE2\x82",                  // €, truncated after two bytes
      "\xE2",                      // and after one
      "\xF0\x9F\x98",              // 😀, truncated after three bytes
      "\xF0\x9F",                  // after two
      "\xF0",                      // and after one
      "\xED\xA0\x80",              // the first surrogate
      "\xED\xBF\xBF",              // the last
      "\xED\xA0\xBD\xED\xB8\x80",  // 😀 as two surrogates
      "\xF4\x90\x80\x80",          // beyond U+10FFFF
      "\xF8\x88\x80\x80\x80",      // five bytes
      "\xFE",
      "\xFF",
      "\xE2\x28\xA1",  // a continuation missing in the middle
      "a\xE2\x80",     // truncated at the end of a word
  };
  return texts;
}

namespace arbitrary {

inline std::string asciiText() {
  return *rc::gen::container<std::string>(
      rc::gen::map(rc::gen::inRange(0, 128), [](int byte) { return static_cast<char>(byte); }));
}

/// Any bytes at all.
inline std::string bytes() {
  return *rc::gen::container<std::string>(rc::gen::map(rc::gen::inRange(0, 256), [](int byte) {
    return static_cast<char>(static_cast<unsigned char>(byte));
  }));
}

/// A concatenation of random pieces; the size of the test case limits their number.
inline std::string textOf(const std::vector<std::string>& pieces) {
  const auto chosen = *rc::gen::container<std::vector<std::string>>(rc::gen::elementOf(pieces));
  std::string text;
  for (const std::string& piece : chosen) text += piece;
  return text;
}

}  // namespace arbitrary
}  // namespace tilwin
