#pragma once

#include <span>
#include <string>
#include <string_view>

namespace tilwin {

/// How a desktop says the texts of this program, which are written in the words of macOS. Only fixed texts
/// may pass through it, so that a name the user chose is never changed.
struct Wording {
  struct Word {
    std::string_view written;
    std::string_view said;

    bool operator==(const Word&) const = default;
  };

  std::span<const Word> words{};  ///< the first that fits wins; whole words only
  std::span<const Word> keys{};   ///< by the symbol of a modifier or the name of a key

  bool operator==(const Wording& other) const;

  /// The text with each of `words` replaced.
  [[nodiscard]] std::string text(std::string_view fixed) const;
  /// The symbol or name as `keys` says it, or as it is.
  [[nodiscard]] std::string_view key(std::string_view symbol) const;
};

}  // namespace tilwin
