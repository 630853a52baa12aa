#include "core/layouts/PhraseParser.h"

#include <set>

#include "core/layouts/PhraseTable.h"
#include "tests/core/support/Texts.h"

namespace tilwin {
namespace {

using Clauses = std::vector<PhraseParser::Clause>;

using enum SnapAction;

PhraseParser::Result parse(std::string_view text) { return PhraseParser::parse(text); }

/// The sentence gives these clauses and nothing unreadable.
void expectClauses(std::string_view text, const Clauses& clauses) {
  EXPECT_EQ(parse(text), (PhraseParser::Result{clauses, {}})) << text;
}

void expectUnreadable(std::string_view text, const Texts& pieces) {
  EXPECT_EQ(parse(text), (PhraseParser::Result{{}, pieces})) << text;
}

TEST(PhraseTable, HasFortySevenPhrasesAndFifteenFillers) {
  EXPECT_EQ(PhraseTable::phrases.size(), 47);
  EXPECT_EQ(PhraseTable::fillers.size(), 15);
  std::set<std::string_view> different;
  for (const auto& row : PhraseTable::phrases) different.insert(row.phrase);
  EXPECT_EQ(different.size(), 47);
}

TEST(PhraseTable, LongerPhrasesStandBeforeTheShorterOnesTheyContain) {
  for (std::size_t later = 0; later < PhraseTable::phrases.size(); ++later) {
    const std::string padded = " " + std::string(PhraseTable::phrases[later].phrase) + " ";
    for (std::size_t earlier = 0; earlier < later; ++earlier) {
      const std::string shorter = " " + std::string(PhraseTable::phrases[earlier].phrase) + " ";
      EXPECT_EQ(padded.find(shorter), std::string::npos) << shorter << "hides" << padded;
    }
  }
}

TEST(PhraseParser, EveryPhraseGivesItsAction) {
  for (const auto& [phrase, action] : PhraseTable::phrases) {
    expectClauses("Zed " + std::string(phrase), {{"zed", action}});
    expectClauses(std::string(phrase) + " Zed", {{"zed", action}});
    expectUnreadable(phrase, {std::string(phrase)});
  }
}

TEST(PhraseParser, AndPartsTwoClauses) {
  expectClauses("Safari left half and Mail right half", {{"safari", leftHalf}, {"mail", rightHalf}});
}

TEST(PhraseParser, SemicolonAndThenPartClausesAndAPieceWithoutPhraseIsUnreadable) {
  const PhraseParser::Result expected{{{"notes", topRight}, {"calendar", bottomHalf}}, {"music"}};
  EXPECT_EQ(parse("notes top right; music then calendar bottom"), expected);
}

TEST(PhraseParser, EverySeparatorPartsClauses) {
  for (const char* separator : {",", ";", "|", " and ", " then ", " AND ", " , and then; "}) {
    expectClauses("mail left" + std::string(separator) + "notes right",
                  {{"mail", leftHalf}, {"notes", rightHalf}});
  }
}

TEST(PhraseParser, SeparatorWordsPartOnlyAsWholeWords) {
  expectClauses("android left", {{"android", leftHalf}});
  expectClauses("brand thenar left", {{"brand thenar", leftHalf}});
  expectClauses("_and_ left", {{"_and_", leftHalf}});
  expectClauses("and2 left", {{"and2", leftHalf}});
  expectClauses("éand left", {{"éand", leftHalf}});
  expectClauses("and\u0301 left", {{"and\u0301", leftHalf}});
}

TEST(PhraseParser, PunctuationBesideASeparatorWordLeavesItWhole) {
  const PhraseParser::Result expected{{{"mail-", leftHalf}}, {"-notes"}};
  EXPECT_EQ(parse("left mail-and-notes"), expected);
}

TEST(PhraseParser, APhraseWithoutApplicationIsUnreadable) {
  expectUnreadable("left", {"left"});
  expectUnreadable("Put the window on the LEFT  side", {"put the window on the left side"});
  expectUnreadable("left left", {"left left"});
}

TEST(PhraseParser, FillersAndTakesAreDropped) {
  expectClauses("the mail window takes the left two thirds", {{"mail", leftTwoThirds}});
  expectClauses("put a mail app window in the top right with an set at on to of side place",
                {{"mail", topRight}});
}

TEST(PhraseParser, FillersAreDroppedOnlyAsWholeWords) {
  expectClauses("theatre appetite left", {{"theatre appetite", leftHalf}});
}

TEST(PhraseParser, TheEarlierPhraseOfTheTableWins) {
  expectClauses("finder left 3/4", {{"finder", leftThreeFourths}});
  expectClauses("middle finder left 3/4", {{"middle finder", leftThreeFourths}});
  expectClauses("center finder top left", {{"center finder", topLeft}});
  expectClauses("mail top left over", {{"mail over", topLeft}});
  expectClauses("top mail left", {{"top mail", leftHalf}});
  expectClauses("mail middle fill", {{"mail middle", maximize}});
}

TEST(PhraseParser, PhrasesAreFoundOnlyAsWholeWords) {
  expectUnreadable("leftover", {"leftover"});
  expectUnreadable("laptop lefty", {"laptop lefty"});
  expectUnreadable("mail left-half", {"mail left-half"});
  expectUnreadable("mail left.", {"mail left."});
  expectUnreadable("mail left\u0301", {"mail left\u0301"});
  expectClauses("maximized mail", {{"mail", maximize}});
}

TEST(PhraseParser, ThePhraseIsRemovedInsideOtherWordsToo) {
  expectClauses("laptop stop top", {{"lap s", topHalf}});
  expectClauses("leftleft leftovers left", {{"overs", leftHalf}});
  expectUnreadable("topatop top", {"topatop top"});
  expectClauses("mail left left", {{"mail", leftHalf}});
}

TEST(PhraseParser, WhatIsLeftOfAnotherPhraseStays) {
  expectClauses("xleft half half left half", {{"x half", leftHalf}});
  expectClauses("mail left 2/3 left", {{"mail left", leftTwoThirds}});
}

TEST(PhraseParser, EmptyPiecesVanish) {
  const PhraseParser::Result expected{{{"mail", center}}, {"slack"}};
  EXPECT_EQ(parse("slack,,  , mail center"), expected);
  EXPECT_EQ(parse(""), PhraseParser::Result{});
  EXPECT_EQ(parse(" ,;| and then,\n"), PhraseParser::Result{});
}

TEST(PhraseParser, UnreadablePiecesStandAsNormalised) {
  expectUnreadable("  Big \t\n MUSIC\u00A0App ; ÉTÉ ", {"big music app", "été"});
}

TEST(PhraseParser, AnyWhiteSpacePartsWords) {
  expectClauses("\u3000mail\u00A0left\u2028half\u0085", {{"mail", leftHalf}});
  expectClauses("mail\ttop\r\nright\v", {{"mail", topRight}});
  expectClauses("x\u2003y left", {{"x y", leftHalf}});
  expectUnreadable("mail\u200Bleft", {"mail\u200Bleft"});
}

TEST(PhraseParser, NamesOfAnyScriptAreLowerCased) {
  expectClauses("ÉDITEUR Left, 写真 right, ΟΔΟΣ top, İnbox fill",
                {{"éditeur", leftHalf}, {"写真", rightHalf}, {"οδος", topHalf}, {"i\u0307nbox", maximize}});
}

TEST(PhraseParser, IllFormedBytesBecomeReplacementCharacters) {
  expectClauses("ma\xFFil left", {{"ma\uFFFDil", leftHalf}});
  for (const std::string& text : illFormedTexts()) {
    std::string sentence = "mail ";
    sentence.append(text).append(" left, ").append(text);
    const auto result = parse(sentence);
    ASSERT_EQ(result.clauses.size(), 1) << testing::PrintToString(text);
    EXPECT_EQ(result.clauses[0].action, leftHalf);
    EXPECT_EQ(result.unreadable.size(), 1);
  }
}

TEST(PhraseParser, NulIsACharacterLikeAnother) {
  expectClauses(std::string_view("a\0b left", 8), {{std::string("a\0b", 3), leftHalf}});
}

}  // namespace
}  // namespace tilwin
