#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tilwin {

/// Comparisons and forms of UTF-8 text by Unicode's rules, in no particular language. Ill-formed bytes count
/// as U+FFFD; nothing here throws or reads out of bounds. Plain ASCII takes a short way to the same result.
struct UnicodeText {
  /// Two texts have equal keys just when they are equal ignoring case, composed or not (canonical caseless
  /// matching, definition D145 of the Unicode Standard).
  [[nodiscard]] static std::string caseKey(std::string_view text);
  [[nodiscard]] static bool equalIgnoringCase(std::string_view first, std::string_view second);

  /// The key for searching: full case folding, without the nonspacing marks that are diacritics.
  [[nodiscard]] static std::string baseKey(std::string_view text);
  /// Whether the base key of `text` contains that of `part`; an empty part is contained in every text.
  [[nodiscard]] static bool containsIgnoringCaseAndDiacritics(std::string_view text, std::string_view part);

  [[nodiscard]] static std::string lowerCased(std::string_view text);
  /// Equal for canonically equivalent texts (normalization form C), and otherwise the text itself.
  [[nodiscard]] static std::string composed(std::string_view text);
  /// Without white space (the property White_Space) at both ends.
  [[nodiscard]] static std::string trimmed(std::string_view text);
  /// With a single plain space for every run of white space, at the ends too.
  [[nodiscard]] static std::string singleSpaced(std::string_view text);
  /// Every match of a regular expression (ICU's syntax) replaced by `with`. An expression that cannot be
  /// compiled is a programming error and ends the program.
  [[nodiscard]] static std::string replacingMatches(std::string_view text, std::string_view expression,
                                                    std::string_view with);
  /// The pieces between plain spaces, without empty ones. They are views into `text`.
  [[nodiscard]] static std::vector<std::string_view> words(std::string_view text);
};

}  // namespace tilwin
