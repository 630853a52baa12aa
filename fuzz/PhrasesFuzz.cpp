// Any bytes as the sentence that describes a layout: every piece of it must be accounted for.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/layouts/PhraseParser.h"
#include "core/layouts/PhraseTable.h"
#include "core/support/UnicodeText.h"
#include "fuzz/Require.h"

namespace tilwin {
namespace {

/// How many stretches between separators hold more than white space.
std::size_t countPieces(std::string_view text) {
  const std::string separated = UnicodeText::replacingMatches(text, PhraseTable::separators, ",") + ",";
  std::size_t pieces = 0;
  for (std::size_t start = 0; start < separated.size(); start = separated.find(',', start) + 1) {
    const std::size_t length = separated.find(',', start) - start;
    if (!UnicodeText::trimmed(std::string_view(separated).substr(start, length)).empty()) ++pieces;
  }
  return pieces;
}

void checkResult(const PhraseParser::Result& result, std::string_view text) {
  require(result.clauses.size() + result.unreadable.size() == countPieces(UnicodeText::lowerCased(text)),
          "a piece of the sentence is neither a clause nor unreadable, or is both");
  for (const auto& clause : result.clauses) {
    require(!clause.appQuery.empty(), "a clause asks for no application");
    require(UnicodeText::trimmed(clause.appQuery) == clause.appQuery, "a query has space around it");
    require(UnicodeText::singleSpaced(clause.appQuery) == clause.appQuery,
            "a query has a run of white space");
  }
  for (const std::string& piece : result.unreadable) {
    require(!piece.empty() && UnicodeText::trimmed(piece) == piece, "an unreadable piece is not trimmed");
  }
}

void checkSlots(const PhraseParser::Result& result) {
  const std::vector<PhraseParser::AppCandidate> apps{
      {"mail", "Mail"}, {"mailplane", "Mailplane"}, {"pad", "Sketch Pad"}, {"cafe", "Café"}, {"none", ""}};
  const auto [slots, unresolved] = PhraseParser::slots(result, apps);
  require(slots.size() + unresolved.size() == result.clauses.size(),
          "a clause is neither a slot nor unresolved, or is both");
  for (const LayoutSlot& slot : slots) {
    const bool isOffered = std::any_of(apps.begin(), apps.end(), [&](const auto& app) {
      return slot.bundleID == app.bundleID && slot.appName == app.name;
    });
    require(isOffered, "a slot is for an application nobody offered");
  }
  for (const std::string& query : unresolved) {
    require(!PhraseParser::resolve(query, apps).has_value(), "what is unresolved can be resolved");
  }
}

}  // namespace
}  // namespace tilwin

// NOLINTNEXTLINE(readability-identifier-naming): libFuzzer calls it by this name
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  const auto result = tilwin::PhraseParser::parse(text);
  tilwin::checkResult(result, text);
  tilwin::checkSlots(result);
  return 0;
}
