#include "core/layouts/ApplicationNames.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "core/support/UnicodeText.h"

namespace tilwin {
namespace {

/// Lower case and composed (NFC), so that differently encoded accents compare equal.
std::string comparable(std::string_view text) { return UnicodeText::composed(UnicodeText::lowerCased(text)); }

bool equals(std::string_view name, std::string_view query) { return name == query; }

bool begins(std::string_view name, std::string_view query) { return name.starts_with(query); }

bool hasWordBeginning(std::string_view name, std::string_view query) {
  const auto words = UnicodeText::words(name);
  return std::any_of(words.begin(), words.end(),
                     [&](std::string_view word) { return word.starts_with(query); });
}

bool contains(std::string_view name, std::string_view query) {
  return name.find(query) != std::string_view::npos;
}

constexpr std::array tests{equals, begins, hasWordBeginning, contains};

/// How many candidates passed one of the tests, and the last of them.
struct Passed {
  const PhraseParser::AppCandidate* candidate = nullptr;
  std::size_t count = 0;
};

using PassedTests = std::array<Passed, tests.size()>;

void note(const PhraseParser::AppCandidate& candidate, std::string_view name, std::string_view query,
          PassedTests& passed) {
  if (!contains(name, query)) return;  // the other tests imply this one
  for (std::size_t test = 0; test < tests.size(); ++test) {
    if (tests[test](name, query)) passed[test] = {&candidate, passed[test].count + 1};
  }
}

}  // namespace

ApplicationNames::ApplicationNames(std::span<const PhraseParser::AppCandidate> candidates)
    : candidates_(candidates) {
  names_.reserve(candidates.size());
  for (const auto& candidate : candidates) names_.push_back(comparable(candidate.name));
}

const PhraseParser::AppCandidate* ApplicationNames::find(std::string_view query) const {
  const std::string asked = comparable(UnicodeText::trimmed(query));
  if (asked.empty()) return nullptr;
  PassedTests passed{};
  for (std::size_t index = 0; index < names_.size(); ++index) {
    note(candidates_[index], names_[index], asked, passed);
  }
  const auto first =
      std::find_if(passed.begin(), passed.end(), [](const Passed& each) { return each.count > 0; });
  return first != passed.end() && first->count == 1 ? first->candidate : nullptr;
}

}  // namespace tilwin
