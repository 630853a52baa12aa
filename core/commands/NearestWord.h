#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace tilwin {

/// Finds what somebody meant who mistyped one of a few words. Case and hyphens do not count.
struct NearestWord {
  /// The candidate that needs the fewest edits: inserting, deleting or replacing a byte, or exchanging two
  /// neighbours. The first of several; nothing if more than a third of the word would have to change. Source:
  /// F. J. Damerau, "A technique for computer detection and correction of spelling errors", 1964 (the
  /// restricted distance).
  [[nodiscard]] static std::optional<std::string> of(std::string_view word,
                                                     std::span<const std::string_view> candidates);
  /// " Did you mean \"snap\"?", or nothing if no candidate is near.
  [[nodiscard]] static std::string question(std::string_view word,
                                            std::span<const std::string_view> candidates);
};

}  // namespace tilwin
