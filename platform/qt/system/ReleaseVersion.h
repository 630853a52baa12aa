#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tilwin::qt {

/// The version of a release, such as "1.4", "v2.0.1" or "2.1.0-beta.2+build7". Numbers that are missing at
/// the end are zeros. Ordered as in Semantic Versioning: a version with a suffix comes before the one
/// without, numbers in suffixes compare as numbers, what follows a plus sign does not count.
struct ReleaseVersion {
  enum class Stage { early, final };
  enum class Kind { number, word };

  /// A run of digits or of letters in a suffix. Numbers come before words.
  struct Part {
    Kind kind = Kind::number;
    std::uint64_t number = 0;
    std::string word{};  ///< in lower case

    // NOLINTNEXTLINE(modernize-use-nullptr): clang 14 takes the zero that text is compared with for a pointer
    auto operator<=>(const Part& other) const = default;
  };

  std::vector<std::uint64_t> numbers{};  ///< without zeros at the end
  Stage stage = Stage::final;            ///< early with a suffix
  std::vector<Part> suffix{};

  /// Nothing if the text, apart from white space around it, is not a version or is longer than 64 bytes.
  [[nodiscard]] static std::optional<ReleaseVersion> parse(std::string_view text);

  /// By the fields in their order.
  // NOLINTNEXTLINE(modernize-use-nullptr): as above
  auto operator<=>(const ReleaseVersion& other) const = default;
};

}  // namespace tilwin::qt
