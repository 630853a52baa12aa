#include "core/support/Utf8.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "tests/core/support/Texts.h"

namespace tilwin {
namespace {

std::u32string forward(std::string_view text) {
  std::u32string characters;
  for (std::size_t at = 0; at < text.size(); at += Utf8::next(text, at).size) {
    characters += Utf8::next(text, at).codePoint;
  }
  return characters;
}

std::u32string backward(std::string_view text) {
  std::u32string characters;
  for (std::size_t at = text.size(); at > 0; at -= Utf8::previous(text, at).size) {
    characters.insert(characters.begin(), Utf8::previous(text, at).codePoint);
  }
  return characters;
}

TEST(Utf8, WalksCharactersOfEveryLengthInBothDirections) {
  const std::string_view text("a\0é€😀", 11);
  EXPECT_EQ(forward(text), std::u32string(U"a\0é€😀", 5));
  EXPECT_EQ(backward(text), std::u32string(U"a\0é€😀", 5));
}

TEST(Utf8, HasNoCharacterBeyondTheEnds) {
  EXPECT_EQ(Utf8::next("").size, 0);
  EXPECT_EQ(Utf8::next("a", 1).size, 0);
  EXPECT_EQ(Utf8::next("a", 7).size, 0);
  EXPECT_EQ(Utf8::previous("", 0).size, 0);
  EXPECT_EQ(Utf8::previous("a", 0).size, 0);
}

TEST(Utf8, IllFormedBytesAreReplacementCharacters) {
  for (const std::string& text : illFormedTexts()) {
    EXPECT_NE(forward(text).find(U'\uFFFD'), std::u32string::npos) << testing::PrintToString(text);
    EXPECT_NE(backward(text).find(U'\uFFFD'), std::u32string::npos) << testing::PrintToString(text);
  }
}

TEST(Utf8, ATextIsAsciiUntilOneByteIsNot) {
  for (std::size_t length = 0; length < 40; ++length) {
    std::string text(length, 'a');
    EXPECT_TRUE(Utf8::isAscii(text));
    for (std::size_t at = 0; at < length; ++at) {
      text[at] = '\x80';
      EXPECT_FALSE(Utf8::isAscii(text)) << at << " of " << length;
      text[at] = '\x7F';
    }
  }
}

TEST(Utf8, AStartSplitsNoCharacter) {
  const std::string_view text = "aé€😀b";
  const std::vector<std::string_view> starts{"",    "a",   "a",   "aé",  "aé",   "aé",
                                             "aé€", "aé€", "aé€", "aé€", "aé€😀", text};
  for (std::size_t bytes = 0; bytes < starts.size(); ++bytes)
    EXPECT_EQ(Utf8::prefix(text, bytes), starts[bytes]);
  EXPECT_EQ(Utf8::prefix(text, 1000), text);
  EXPECT_EQ(Utf8::prefix("", 0), "");
}

RC_GTEST_PROP(Utf8Properties, AStartIsOfWholeCharactersAndAsLongAsItCanBe, ()) {
  const std::string text = arbitrary::bytes();
  const auto bytes = static_cast<std::size_t>(arbitrary::whole(0, 20));
  const std::string_view start = Utf8::prefix(text, bytes);
  RC_ASSERT(start.size() <= bytes && text.starts_with(start));
  RC_ASSERT(forward(text).starts_with(forward(start)));
  RC_ASSERT(start.size() + Utf8::next(text, start.size()).size > bytes || start.size() == text.size());
}

RC_GTEST_PROP(Utf8Properties, BothDirectionsSeeTheSameCharacters, ()) {
  const std::string text = arbitrary::bytes();
  RC_ASSERT(forward(text) == backward(text));
}

}  // namespace
}  // namespace tilwin
