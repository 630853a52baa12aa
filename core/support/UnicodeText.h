#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tilwin {

/// Comparison and normalisation of UTF-8 text by Unicode's rules, independent of any language. Nothing here
/// throws; invalid bytes count as U+FFFD. Plain ASCII takes a faster path to the same result.
struct UnicodeText {
  /// A key for comparing without case: two texts have equal keys exactly if they are equal ignoring case and
  /// composition (canonical caseless matching, definition D145 of the Unicode Standard).
  [[nodiscard]] static std::string caseKey(std::string_view text);
  [[nodiscard]] static bool equalIgnoringCase(std::string_view first, std::string_view second);

  /// A key for searching: case-folded (full folding), and without diacritics that are nonspacing marks.
  [[nodiscard]] static std::string baseKey(std::string_view text);
  /// Whether the base key of `text` contains that of `part`. Every text contains an empty part.
  [[nodiscard]] static bool containsIgnoringCaseAndDiacritics(std::string_view text, std::string_view part);

  [[nodiscard]] static std::string lowerCased(std::string_view text);
  /// The text in normalization form C, in which canonically equivalent texts are equal.
  [[nodiscard]] static std::string composed(std::string_view text);
  /// Without white space (Unicode property White_Space) at both ends.
  [[nodiscard]] static std::string trimmed(std::string_view text);
  /// Every run of white space replaced by a single space, also at the ends.
  [[nodiscard]] static std::string singleSpaced(std::string_view text);
  /// The first `count` characters as a reader counts them (extended grapheme clusters, UAX #29).
  [[nodiscard]] static std::string prefix(std::string_view text, std::size_t count);
  /// Every match of a regular expression (ICU syntax) replaced by `with`. An invalid expression is a
  /// programming error and aborts the program.
  [[nodiscard]] static std::string replacingMatches(std::string_view text, std::string_view expression,
                                                    std::string_view with);
  /// The non-empty pieces between spaces (U+0020), as views into `text`.
  [[nodiscard]] static std::vector<std::string_view> words(std::string_view text);
};

}  // namespace tilwin
