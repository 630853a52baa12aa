#include "core/commands/NearestWord.h"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace tilwin {
namespace {

/// Longer words are not looked up: nobody mistypes that much, and the distance takes quadratic time.
constexpr std::size_t longestWord = 64;

std::string folded(std::string_view word) {
  std::string result;
  for (const char each : word) {
    if (each == '-') continue;
    result += each >= 'A' && each <= 'Z' ? static_cast<char>(each - 'A' + 'a') : each;
  }
  return result;
}

std::size_t distance(std::string_view first, std::string_view second) {
  using Row = std::vector<std::size_t>;
  Row beforeLast(second.size() + 1);
  Row last(second.size() + 1);
  for (std::size_t column = 0; column < last.size(); ++column) last[column] = column;
  for (std::size_t i = 1; i <= first.size(); ++i) {
    Row row(second.size() + 1, i);
    for (std::size_t j = 1; j <= second.size(); ++j) {
      const std::size_t replaced = last[j - 1] + (first[i - 1] == second[j - 1] ? 0 : 1);
      row[j] = std::min({replaced, last[j] + 1, row[j - 1] + 1});
      const bool areExchanged =
          i > 1 && j > 1 && first[i - 1] == second[j - 2] && first[i - 2] == second[j - 1];
      if (areExchanged) row[j] = std::min(row[j], beforeLast[j - 2] + 1);
    }
    beforeLast = std::exchange(last, std::move(row));
  }
  return last.back();
}

}  // namespace

std::optional<std::string> NearestWord::of(std::string_view word,
                                           std::span<const std::string_view> candidates) {
  if (word.size() > longestWord) return std::nullopt;
  const std::string typed = folded(word);
  std::optional<std::string> nearest;
  std::size_t least = std::max<std::size_t>(1, typed.size() / 3) + 1;
  for (const std::string_view candidate : candidates) {
    const std::size_t edits = distance(typed, folded(candidate));
    if (edits >= least) continue;
    least = edits;
    nearest = candidate;
  }
  return nearest;
}

std::string NearestWord::question(std::string_view word, std::span<const std::string_view> candidates) {
  const auto nearest = of(word, candidates);
  return nearest ? " Did you mean \"" + *nearest + "\"?" : std::string();
}

}  // namespace tilwin
