#include "core/layouts/PhraseParser.h"

#include <algorithm>
#include <cstddef>

#include "core/layouts/ApplicationNames.h"
#include "core/layouts/PhraseTable.h"
#include "core/support/UnicodeText.h"

namespace tilwin {
namespace {

/// For actions that are not defined by grid cells: the size and position of `centerLarge`.
constexpr NormalizedRect fallbackTarget{0.175, 0.1, 0.65, 0.8};

/// A single-spaced text without the spaces at its ends, as a view.
std::string_view withoutOuterSpaces(std::string_view text) {
  if (text.starts_with(' ')) text.remove_prefix(1);
  if (text.ends_with(' ')) text.remove_suffix(1);
  return text;
}

/// Whether a single-spaced text contains the words, as whole words.
bool hasWords(std::string_view text, std::string_view words) {
  for (std::size_t at = text.find(words); at != std::string_view::npos; at = text.find(words, at + 1)) {
    const std::size_t end = at + words.size();
    if ((at == 0 || text[at - 1] == ' ') && (end == text.size() || text[end] == ' ')) return true;
  }
  return false;
}

/// The first row of the table whose phrase occurs in the piece; null if there is none.
const PhraseTable::Row* findPhrase(std::string_view piece) {
  const auto& rows = PhraseTable::phrases;
  const auto* const found = std::find_if(
      rows.begin(), rows.end(), [&](const PhraseTable::Row& row) { return hasWords(piece, row.phrase); });
  return found == rows.end() ? nullptr : found;
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
  const std::string separated =
      UnicodeText::replacingMatches(UnicodeText::lowerCased(text), PhraseTable::separators, ",");
  const std::string sentence = UnicodeText::singleSpaced(separated);
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
