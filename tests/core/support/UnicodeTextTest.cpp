#include "core/support/UnicodeText.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <unicode/unistr.h>

#include "tests/core/support/RegularExpression.h"
#include "tests/core/support/Texts.h"

namespace tilwin {
namespace {

// Composed and decomposed, spelled out so that no editor makes one of the other.
const std::string composedE = "\u00E9";
const std::string decomposedE = "e\u0301";

bool contains(std::string_view text, std::string_view part) {
  return UnicodeText::containsIgnoringCaseAndDiacritics(text, part);
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

TEST(UnicodeTextIgnoringCase, ComposedAndDecomposedAreEqual) {
  EXPECT_TRUE(UnicodeText::equalIgnoringCase("Caf" + composedE, "CAF" + decomposedE));
  EXPECT_TRUE(UnicodeText::equalIgnoringCase("\u00C9", decomposedE));
  EXPECT_FALSE(UnicodeText::equalIgnoringCase("Cafe", "Caf" + composedE)) << "an accent is no matter of case";
}

TEST(UnicodeTextIgnoringCase, FoldsFully) {
  EXPECT_TRUE(UnicodeText::equalIgnoringCase("Straße", "STRASSE"));
  EXPECT_TRUE(UnicodeText::equalIgnoringCase("ẞ", "ß"));
  EXPECT_TRUE(UnicodeText::equalIgnoringCase("ﬁle", "FILE")) << "a ligature";
  EXPECT_TRUE(UnicodeText::equalIgnoringCase("\u212A", "k")) << "the Kelvin sign equals an ASCII letter";
  EXPECT_TRUE(UnicodeText::equalIgnoringCase("\u1FB3", "\u03B1\u0399")) << "iota below the alpha";
}

TEST(UnicodeTextIgnoringCase, FollowsNoLanguage) {
  EXPECT_TRUE(UnicodeText::equalIgnoringCase("İ", "i\u0307"));
  EXPECT_FALSE(UnicodeText::equalIgnoringCase("İ", "i"));
  EXPECT_FALSE(UnicodeText::equalIgnoringCase("ı", "I"));
  EXPECT_TRUE(UnicodeText::equalIgnoringCase("I", "i"));
}

TEST(UnicodeTextIgnoringCase, FinalSigmaIsASigma) {
  EXPECT_TRUE(UnicodeText::equalIgnoringCase("ΟΔΟΣ", "οδος"));
  EXPECT_TRUE(UnicodeText::equalIgnoringCase("οδοσ", "οδος"));
}

TEST(UnicodeTextIgnoringCase, ScriptsWithoutCaseStayAsTheyAre) {
  for (const char* text : {"日本語", "한국어", "😀👩‍👩‍👧", "عربي"}) {
    EXPECT_TRUE(UnicodeText::equalIgnoringCase(text, text)) << text;
  }
  EXPECT_FALSE(UnicodeText::equalIgnoringCase("日本", "日木"));
  EXPECT_FALSE(UnicodeText::equalIgnoringCase("か", "が"));
  EXPECT_FALSE(UnicodeText::equalIgnoringCase("か", "カ"))
      << "hiragana and katakana are no cases of each other";
  EXPECT_TRUE(UnicodeText::equalIgnoringCase("か\u3099", "が"));
}

TEST(UnicodeTextIgnoringCase, LengthAndNulCount) {
  EXPECT_FALSE(UnicodeText::equalIgnoringCase("mail", "mailplane"));
  EXPECT_FALSE(UnicodeText::equalIgnoringCase(std::string("a\0b", 3), std::string("a\0c", 3)));
  EXPECT_FALSE(UnicodeText::equalIgnoringCase("a", std::string("a\0", 2)));
  EXPECT_EQ(UnicodeText::caseKey(std::string("A\0É", 4)), std::string("a\0", 2) + decomposedE);
}

TEST(UnicodeTextBase, FindsIgnoringCaseAndDiacritics) {
  EXPECT_TRUE(contains("Caf" + composedE + " Paris", "CAFE"));
  EXPECT_TRUE(contains("Cafe", "caf" + decomposedE));
  EXPECT_TRUE(contains("ÅNGSTRÖM", "angstrom"));
  EXPECT_TRUE(contains("Việt Nam", "viet"));
  EXPECT_TRUE(contains("Straße", "SS"));
  EXPECT_TRUE(contains("STRASSE", "ß"));
  EXPECT_TRUE(contains("İstanbul", "istanbul"));
  EXPECT_FALSE(contains("ısı", "i")) << "the dotless letter is another letter";
  EXPECT_TRUE(contains("ΟΔΌΣ", "οδος"));
  EXPECT_FALSE(contains("Notes", "notesx"));
}

TEST(UnicodeTextBase, VoicedKanaFindTheirPlainOnes) {
  EXPECT_TRUE(contains("がぎ", "かき"));
  EXPECT_TRUE(contains("か\u3099", "が"));
  EXPECT_FALSE(contains("か", "き"));
}

TEST(UnicodeTextBase, FindsWholeCharactersOnly) {
  EXPECT_TRUE(contains("日本語", "本"));
  EXPECT_FALSE(contains("한", "하")) << "a syllable is no part of another";
  EXPECT_TRUE(contains("한국", "\u1112\u1161\u11AB")) << "written letter by letter it is the same syllable";
  EXPECT_TRUE(contains("a😀b", "😀"));
  EXPECT_FALSE(contains("😁", "😀"));
}

TEST(UnicodeTextBase, MarksThatAreNoDiacriticsStay) {
  EXPECT_FALSE(contains("कि", "की")) << "vowel signs tell words apart";
  EXPECT_NE(UnicodeText::baseKey("กุ"), UnicodeText::baseKey("ก"));
}

TEST(UnicodeTextBase, EveryTextContainsAnEmptyPart) {
  EXPECT_TRUE(contains("", ""));
  EXPECT_TRUE(contains("Mail", ""));
  EXPECT_FALSE(contains("", "Mail"));
}

TEST(UnicodeTextLowerCased, FollowsTheFullMappingOfNoLanguage) {
  EXPECT_EQ(UnicodeText::lowerCased("SAFARI Left 3/4"), "safari left 3/4");
  EXPECT_EQ(UnicodeText::lowerCased("ÉCOLE ẞ"), "école ß");
  EXPECT_EQ(UnicodeText::lowerCased("İI"), "i\u0307i");
  EXPECT_EQ(UnicodeText::lowerCased("ΟΔΟΣ ΣΑΣ"), "οδος σας");
  EXPECT_EQ(UnicodeText::lowerCased("日本😀"), "日本😀");
  EXPECT_EQ(UnicodeText::lowerCased(std::string("A\0Ä", 4)), std::string("a\0ä", 4));
}

TEST(UnicodeTextComposed, MakesEquivalentTextsEqual) {
  EXPECT_EQ(UnicodeText::composed("caf" + decomposedE), "caf" + composedE);
  EXPECT_EQ(UnicodeText::composed("caf" + composedE), "caf" + composedE);
  EXPECT_EQ(UnicodeText::composed("cafe"), "cafe");
  EXPECT_EQ(UnicodeText::composed("ﬁ"), "ﬁ") << "what only looks alike stays";
}

TEST(UnicodeTextTrimmed, TakesEveryWhiteSpaceOffBothEnds) {
  EXPECT_EQ(UnicodeText::trimmed(" \t\r\n\v\f Mail\u00A0App \u2003\u3000\u2028\u0085"), "Mail\u00A0App");
  EXPECT_EQ(UnicodeText::trimmed("Mail"), "Mail");
  EXPECT_EQ(UnicodeText::trimmed(" \u3000 "), "");
  EXPECT_EQ(UnicodeText::trimmed(""), "");
  EXPECT_EQ(UnicodeText::trimmed("\u200BMail\uFEFF"), "\u200BMail\uFEFF") << "these take no space";
  EXPECT_EQ(UnicodeText::trimmed(std::string(" \0 ", 3)), std::string("\0", 1));
}

TEST(UnicodeTextWords, AreWhatStandsBetweenSpaces) {
  EXPECT_EQ(UnicodeText::words("  sketch  pad "), (std::vector<std::string_view>{"sketch", "pad"}));
  EXPECT_EQ(UnicodeText::words("one"), (std::vector<std::string_view>{"one"}));
  EXPECT_EQ(UnicodeText::words("tab\tstays"), (std::vector<std::string_view>{"tab\tstays"}));
  EXPECT_TRUE(UnicodeText::words("").empty());
  EXPECT_TRUE(UnicodeText::words("   ").empty());
}

TEST(UnicodeTextIllFormed, BytesCountAsTheReplacementCharacter) {
  for (const std::string& text : illFormedTexts()) {
    SCOPED_TRACE(testing::PrintToString(text));
    for (const std::string& result : {UnicodeText::caseKey(text), UnicodeText::baseKey(text),
                                      UnicodeText::lowerCased(text), UnicodeText::composed(text)}) {
      EXPECT_NE(result.find("\uFFFD"), std::string::npos);
    }
    EXPECT_TRUE(UnicodeText::equalIgnoringCase("A" + text, "a" + text));
    EXPECT_TRUE(contains("x" + text + "É", "e"));
    EXPECT_EQ(UnicodeText::trimmed(" " + text + "\u3000"), text);
  }
  EXPECT_EQ(UnicodeText::caseKey("A\xFF\xC3"), "a\uFFFD\uFFFD");
  EXPECT_TRUE(UnicodeText::equalIgnoringCase("\xFF", "\uFFFD"));
}

RC_GTEST_PROP(UnicodeTextProperties, AsciiTakesAShortWayToTheSameResult, ()) {
  // The appended letter sends the whole text the long way, and does not touch what stands before it.
  const std::string text = arbitrary::asciiText();
  RC_ASSERT(UnicodeText::caseKey(text + composedE) == UnicodeText::caseKey(text) + decomposedE);
  RC_ASSERT(UnicodeText::baseKey(text + composedE) == UnicodeText::baseKey(text) + "e");
  RC_ASSERT(UnicodeText::lowerCased(text + composedE) == UnicodeText::lowerCased(text) + composedE);
  RC_ASSERT(UnicodeText::composed(text + composedE) == UnicodeText::composed(text) + composedE);
  const std::string other = arbitrary::asciiText();
  RC_ASSERT(UnicodeText::equalIgnoringCase(text, other) ==
            (UnicodeText::caseKey(text + composedE) == UnicodeText::caseKey(other + composedE)));
}

RC_GTEST_PROP(UnicodeTextProperties, KeysAreKeysOfThemselvesAndBlindToTheForm, ()) {
  static const std::vector<std::string> pieces{
      "a",  "E",      composedE, decomposedE, "ß", "İ", "ı",    "Σ", "ς", "が", "か\u3099",
      "한", "\u0301", "\u0323",  "\u0345",    "ᾳ", "😀", "\xFF", " ", "ǰ", "ŉ",  "Å"};
  const std::string text = arbitrary::textOf(pieces);
  RC_ASSERT(UnicodeText::caseKey(UnicodeText::caseKey(text)) == UnicodeText::caseKey(text));
  RC_ASSERT(UnicodeText::baseKey(UnicodeText::baseKey(text)) == UnicodeText::baseKey(text));
  RC_ASSERT(UnicodeText::caseKey(UnicodeText::composed(text)) == UnicodeText::caseKey(text));
  RC_ASSERT(UnicodeText::baseKey(UnicodeText::composed(text)) == UnicodeText::baseKey(text));
}

RC_GTEST_PROP(UnicodeTextProperties, NoBytesBreakAnything, ()) {
  const std::string text = arbitrary::bytes();
  RC_ASSERT(UnicodeText::equalIgnoringCase(text, UnicodeText::caseKey(text)));
  RC_ASSERT(contains(text + "x", text));
  RC_ASSERT(UnicodeText::trimmed(UnicodeText::trimmed(text)) == UnicodeText::trimmed(text));
  std::size_t size = static_cast<std::size_t>(std::count(text.begin(), text.end(), ' '));
  for (const std::string_view word : UnicodeText::words(text)) size += word.size();
  RC_ASSERT(size == text.size());
}

TEST(ReplacingMatches, ReplacesEveryMatchOfTheExpression) {
  EXPECT_EQ(UnicodeText::replacingMatches("a and b, band; android|c", R"(\band\b|;|\|)", ","),
            "a , b, band, android,c");
  EXPECT_EQ(UnicodeText::replacingMatches("日本1日", "[0-9]+", ""), "日本日");
  EXPECT_EQ(UnicodeText::replacingMatches("", "a*b", "c"), "");
}

TEST(ReplacingMatchesDeathTest, EndsTheProgramForAnExpressionThatIsNone) {
  EXPECT_DEATH((void)UnicodeText::replacingMatches("text", "(", ""), "regular expression");
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
