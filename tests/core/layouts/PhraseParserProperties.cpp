#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>

#include "core/layouts/PhraseParser.h"
#include "core/layouts/PhraseTable.h"
#include "core/support/UnicodeText.h"
#include "tests/core/support/RegularExpression.h"
#include "tests/core/support/Texts.h"

namespace tilwin {
namespace {

/// The rules of parsing written with ICU's regular expressions, plainly and slowly.
class PlainParser {
public:
  PlainParser() {
    for (const auto& row : PhraseTable::phrases) {
      phrases_.push_back(
          std::make_unique<RegularExpression>("(^|\\s)\\Q" + std::string(row.phrase) + "\\E(\\s|$)"));
    }
  }

  [[nodiscard]] Texts pieces(std::string_view text) const {
    std::string rest =
        spaces_.replaceAll(separators_.replaceAll(UnicodeText::lowerCased(text), ","), " ") + ",";
    Texts pieces;
    for (std::size_t comma = rest.find(','); comma != std::string::npos; comma = rest.find(',')) {
      pieces.push_back(UnicodeText::trimmed(rest.substr(0, comma)));
      rest.erase(0, comma + 1);
    }
    pieces.erase(std::remove(pieces.begin(), pieces.end(), ""), pieces.end());
    return pieces;
  }

  [[nodiscard]] PhraseParser::Result parse(std::string_view text) const {
    PhraseParser::Result result;
    for (const std::string& piece : pieces(text)) {
      const auto found = std::find_if(phrases_.begin(), phrases_.end(),
                                      [&](const auto& phrase) { return phrase->finds(piece); });
      const auto row = static_cast<std::size_t>(found - phrases_.begin());
      const std::string query =
          found == phrases_.end() ? "" : appQuery(piece, PhraseTable::phrases[row].phrase);
      if (query.empty()) {
        result.unreadable.push_back(piece);
      } else {
        result.clauses.push_back({query, PhraseTable::phrases[row].action});
      }
    }
    return result;
  }

private:
  [[nodiscard]] static std::string appQuery(const std::string& piece, std::string_view phrase) {
    const std::string remainder =
        RegularExpression("\\Q" + std::string(phrase) + "\\E").replaceAll(piece, " ");
    std::string query;
    for (const std::string_view word : UnicodeText::words(remainder)) {
      const auto& fillers = PhraseTable::fillers;
      if (std::count(fillers.begin(), fillers.end(), word) > 0 || word == "takes") continue;
      query += (query.empty() ? "" : " ") + std::string(word);
    }
    return query;
  }

  RegularExpression separators_{R"(\band\b|\bthen\b|;|\|)"};
  RegularExpression spaces_{"\\s+"};
  std::vector<std::unique_ptr<RegularExpression>> phrases_;
};

/// Words of sentences and what can come between and upon them.
Texts piecesOfSentences() {
  Texts pieces{"and",    "then",   "And",     "THEN",   "thenand", "takes",    "mail",   "Notes",  "left",
               "Right",  "half",   "third",   "two",    "thirds",  "2/3",      "3/4",    "top",    "stop",
               "a",      "é",      "e\u0301", "日本",   "١",       "😀",        "İ",      "ΟΣ",     "K",
               "\u0301", "\u200C", "\u200D",  "\u00AD", "\u200B",  "\uFEFF",   "\u20E3", "\u00A0", "\u3000",
               "\u2028", "\u0085", "\t",      "\r\n",   "\v",      "\x1C",     "_",      "7",      "-",
               ".",      ",",      ";",       "|",      "\xFF",    "\xE2\x80", "$",      "\\"};
  pieces.emplace_back(1, '\0');
  for (int count = 0; count < 24; ++count) pieces.emplace_back(" ");
  for (const auto& row : PhraseTable::phrases) pieces.emplace_back(row.phrase);
  for (const std::string_view filler : PhraseTable::fillers) pieces.emplace_back(filler);
  return pieces;
}

TEST(PhraseParserProperties, TheScanReadsAsRegularExpressionsDo) {
  const PlainParser plain;
  const Texts pieces = piecesOfSentences();
  std::size_t clauses = 0;
  EXPECT_TRUE(rc::check([&] {
    for (int sentence = 0; sentence < 5; ++sentence) {
      const std::string text = arbitrary::textOf(pieces);
      const PhraseParser::Result result = PhraseParser::parse(text);
      RC_ASSERT(result == plain.parse(text));
      clauses += result.clauses.size();
    }
  }));
  EXPECT_GT(clauses, 100) << "else the sentences were no test";
}

RC_GTEST_PROP(PhraseParserProperties, TheScanReadsAnyBytesAsRegularExpressionsDo, ()) {
  static const PlainParser plain;
  const std::string text = arbitrary::bytes();
  RC_ASSERT(PhraseParser::parse(text) == plain.parse(text));
}

RC_GTEST_PROP(PhraseParserProperties, EveryPieceIsEitherAClauseOrUnreadable, ()) {
  static const PlainParser plain;
  static const Texts pieces = piecesOfSentences();
  const std::string text = arbitrary::textOf(pieces);
  const PhraseParser::Result result = PhraseParser::parse(text);
  const Texts whole = plain.pieces(text);
  RC_ASSERT(result.clauses.size() + result.unreadable.size() == whole.size());
  auto from = whole.begin();
  for (const std::string& piece : result.unreadable) {
    from = std::find(from, whole.end(), piece);
    RC_ASSERT(from != whole.end());
    ++from;
  }
}

RC_GTEST_PROP(PhraseParserProperties, EveryClauseEndsInASlotOrUnresolved, ()) {
  static const Texts names{"Mail", "Mailplane", "notes", "a b", "é", "Left", "日本", ""};
  std::vector<PhraseParser::AppCandidate> apps;
  for (const std::string& name : *rc::gen::container<Texts>(rc::gen::elementOf(names))) {
    apps.push_back({name, name});
  }
  const auto result = PhraseParser::parse(arbitrary::textOf(piecesOfSentences()));
  const auto [slots, unresolved] = PhraseParser::slots(result, apps);
  RC_ASSERT(slots.size() + unresolved.size() == result.clauses.size());
  for (const std::string& query : unresolved) {
    RC_ASSERT(!PhraseParser::resolve(query, apps).has_value());
  }
}

}  // namespace
}  // namespace tilwin
