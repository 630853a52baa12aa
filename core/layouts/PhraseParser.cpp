#include "core/layouts/PhraseParser.h"

#include <algorithm>
#include <array>
#include <bit>
#include <climits>
#include <cstddef>
#include <cstdint>

#include "core/layouts/ApplicationNames.h"
#include "core/layouts/PhraseTable.h"
#include "core/support/UnicodeText.h"
#include "core/support/WordBoundary.h"

namespace tilwin {
namespace {

/// About as large as the default place of a centred window, for what names no cells of a grid.
constexpr NormalizedRect fallbackTarget{0.175, 0.1, 0.65, 0.8};

bool isSeparatorWordAt(std::string_view text, std::size_t at, std::string_view word) {
  return text[at] == word.front() && text.substr(at).starts_with(word) && WordBoundary::isAt(text, at) &&
         WordBoundary::isAt(text, at + word.size());
}

/// How many bytes a separator takes that begins here; 0 if none does.
std::size_t separatorSize(std::string_view text, std::size_t at) {
  const auto& characters = PhraseTable::separatorCharacters;
  if (std::find(characters.begin(), characters.end(), text[at]) != characters.end()) return 1;
  for (const std::string_view word : PhraseTable::separatorWords) {
    if (isSeparatorWordAt(text, at, word)) return word.size();
  }
  return 0;
}

std::string separatorsAsCommas(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t size = separatorSize(text, at);
    result += size > 0 ? ',' : text[at];
    at += std::max<std::size_t>(size, 1);
  }
  return result;
}

/// The words of a single-spaced text, in place: without the spaces at its ends.
std::string_view withoutOuterSpaces(std::string_view text) {
  if (text.starts_with(' ')) text.remove_prefix(1);
  if (text.ends_with(' ')) text.remove_suffix(1);
  return text;
}

/// For each byte, the phrases that begin with it: bit n stands for row n of the table.
using Rows = std::uint64_t;
static_assert(PhraseTable::phrases.size() <= sizeof(Rows) * CHAR_BIT);

constexpr std::array<Rows, 256> rowsByFirstByte = [] {
  std::array<Rows, 256> rows{};
  for (std::size_t row = 0; row < PhraseTable::phrases.size(); ++row) {
    rows[static_cast<unsigned char>(PhraseTable::phrases[row].phrase.front())] |= Rows{1} << row;
  }
  return rows;
}();

bool beginsWithWords(std::string_view text, std::string_view words) {
  return text.starts_with(words) && (text.size() == words.size() || text[words.size()] == ' ');
}

/// The first of these rows whose phrase begins the text.
std::optional<std::size_t> firstRowBeginning(std::string_view text, Rows rows) {
  rows &= rowsByFirstByte[static_cast<unsigned char>(text.front())];
  for (; rows != 0; rows &= rows - 1) {
    const auto row = static_cast<std::size_t>(std::countr_zero(rows));
    if (beginsWithWords(text, PhraseTable::phrases[row].phrase)) return row;
  }
  return std::nullopt;
}

/// The first row of the table whose phrase stands in the piece as whole words. One walk over the piece's
/// words: each phrase found leaves only the rows above its own to look for.
const PhraseTable::Row* findPhrase(std::string_view piece) {
  const PhraseTable::Row* best = nullptr;
  Rows above = ~Rows{0};
  for (std::string_view rest = piece;;) {
    if (const auto row = firstRowBeginning(rest, above)) {
      best = &PhraseTable::phrases[*row];
      above = (Rows{1} << *row) - 1;
    }
    const std::size_t space = rest.find(' ');
    if (space == std::string_view::npos) return best;
    rest.remove_prefix(space + 1);
  }
}

std::string withSpacesFor(std::string_view phrase, std::string_view piece) {
  std::string result;
  std::size_t start = 0;
  for (std::size_t at = piece.find(phrase); at != std::string_view::npos; at = piece.find(phrase, start)) {
    result.append(piece, start, at - start).append(1, ' ');
    start = at + phrase.size();
  }
  return result.append(piece, start);
}

bool isFiller(std::string_view word) {
  const auto& fillers = PhraseTable::fillers;
  return std::find(fillers.begin(), fillers.end(), word) != fillers.end() || word == PhraseTable::verb;
}

std::string appQuery(std::string_view piece, std::string_view phrase) {
  std::string query;
  const std::string remainder = withSpacesFor(phrase, piece);
  for (const std::string_view word : UnicodeText::words(remainder)) {
    if (isFiller(word)) continue;
    if (!query.empty()) query += ' ';
    query += word;
  }
  return query;
}

void readPiece(std::string_view piece, PhraseParser::Result& into) {
  const PhraseTable::Row* const row = findPhrase(piece);
  std::string query = row != nullptr ? appQuery(piece, row->phrase) : std::string();
  if (query.empty()) {
    into.unreadable.emplace_back(piece);
  } else {
    into.clauses.push_back({std::move(query), row->action});
  }
}

SlotTarget targetOf(SnapAction action) {
  if (const auto region = SnapActions::region(action)) return *region;
  return fallbackTarget;
}

}  // namespace

PhraseParser::Result PhraseParser::parse(std::string_view text) {
  const std::string sentence = UnicodeText::singleSpaced(separatorsAsCommas(UnicodeText::lowerCased(text)));
  const std::string_view rest = sentence;
  Result result;
  for (std::size_t start = 0; start < rest.size();) {
    const std::size_t end = std::min(rest.find(',', start), rest.size());
    const std::string_view piece = withoutOuterSpaces(rest.substr(start, end - start));
    if (!piece.empty()) readPiece(piece, result);
    start = end + 1;
  }
  return result;
}

std::optional<PhraseParser::AppCandidate> PhraseParser::resolve(std::string_view query,
                                                                std::span<const AppCandidate> among) {
  const AppCandidate* const found = ApplicationNames(among).find(query);
  if (found == nullptr) return std::nullopt;
  return *found;
}

PhraseParser::Slots PhraseParser::slots(const Result& from, std::span<const AppCandidate> apps) {
  const ApplicationNames names(apps);
  Slots result;
  for (const Clause& clause : from.clauses) {
    if (const AppCandidate* const app = names.find(clause.appQuery)) {
      result.slots.push_back(
          {.bundleID = app->bundleID, .appName = app->name, .target = targetOf(clause.action)});
    } else {
      result.unresolved.push_back(clause.appQuery);
    }
  }
  return result;
}

}  // namespace tilwin
