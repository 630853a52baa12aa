#include "core/support/WordBoundary.h"

#include <unicode/unistr.h>

#include "core/support/UnicodeText.h"
#include "core/support/Utf8.h"
#include "tests/core/support/RegularExpression.h"
#include "tests/core/support/Texts.h"

namespace tilwin {
namespace {

/// The text with a bar at every word boundary.
std::string marked(std::string_view text) {
  std::string result;
  for (std::size_t at = 0; at <= text.size();) {
    const std::size_t size = Utf8::next(text, at).size;
    if (WordBoundary::isAt(text, at)) result += '|';
    if (size == 0) break;
    result += text.substr(at, size);
    at += size;
  }
  return result;
}

std::string markedByExpression(std::string_view text) {
  static const RegularExpression boundary("\\b");
  return boundary.replaceAll(text, "|");
}

/// Each character of the planes in use, surrogates apart, between the two texts.
std::string everyCharacter(const std::string& before, const std::string& after) {
  std::string text;
  for (UChar32 character = 0; character < 0xE1000; ++character) {
    if (character == 0x40000) character = 0xE0000;
    if (character == 0xD800) character = 0xE000;
    text += before;
    icu::UnicodeString(character).toUTF8String(text);
    text += after;
  }
  return text;
}

TEST(WordBoundary, LiesWhereWordsBeginAndEnd) {
  EXPECT_EQ(marked("left and right"), "|left| |and| |right|");
  EXPECT_EQ(marked("a_1;b"), "|a_1|;|b|");
  EXPECT_EQ(marked(""), "");
  EXPECT_EQ(marked("..."), "...");
  EXPECT_EQ(marked("é日本 ١"), "|é日本| |١|");
}

TEST(WordBoundary, MarksAndFormatCharactersBelongToWhatStandsBefore) {
  EXPECT_EQ(marked("e\u0301a"), "|e\u0301a|");
  EXPECT_EQ(marked(";\u0301a"), ";\u0301|a|");
  EXPECT_EQ(marked("a\u00ADb"), "|a\u00ADb|");
  EXPECT_EQ(marked("\u0301"), "\u0301");
}

TEST(WordBoundary, IsThatOfRegularExpressionsBesideEveryCharacter) {
  const std::string words = everyCharacter("a", " ");
  EXPECT_TRUE(marked(words) == markedByExpression(words));
  const std::string alone = everyCharacter(" ", "a");
  EXPECT_TRUE(marked(alone) == markedByExpression(alone));
}

TEST(WordBoundaryProperties, IsThatOfRegularExpressionsInAnyText) {
  const std::vector<std::string> pieces{"a",      "Z",      "9",      "_",      "é", "\u0301", "\u200C",
                                        "\u200D", "\u00AD", "\u200B", " ",      ";", "日",     "١",
                                        "😀",      "कि",     "ා",      "\u20E3", "‿", "Ⅷ"};
  EXPECT_TRUE(rc::check([&] {
    const std::string text = arbitrary::textOf(pieces);
    RC_ASSERT(marked(text) == markedByExpression(text));
  }));
}

TEST(SingleSpaced, LeavesOneSpaceForEachRunOfWhiteSpace) {
  EXPECT_EQ(UnicodeText::singleSpaced("  a \t\n b\u00A0\u3000c\u2028"), " a b c ");
  EXPECT_EQ(UnicodeText::singleSpaced("a b"), "a b");
  EXPECT_EQ(UnicodeText::singleSpaced(""), "");
  EXPECT_EQ(UnicodeText::singleSpaced("a\u200Bb"), "a\u200Bb");
}

TEST(SingleSpaced, KnowsTheWhiteSpaceOfRegularExpressions) {
  const std::string text = everyCharacter("a", "");
  EXPECT_TRUE(UnicodeText::singleSpaced(text) == RegularExpression("\\s+").replaceAll(text, " "));
}

}  // namespace
}  // namespace tilwin
