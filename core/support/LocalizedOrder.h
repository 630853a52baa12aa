#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace tilwin {

/// Alphabetic order of a locale, ignoring case but not accents (Unicode Collation Algorithm, UTS #10, at
/// secondary strength). Construction is expensive compared with a comparison: make one per sort. Of two texts
/// that differ only in case, neither precedes the other. Invalid UTF-8 counts as U+FFFD.
class LocalizedOrder {
public:
  /// The order of the user's locale (LC_ALL, LC_COLLATE or LANG, as in POSIX).
  LocalizedOrder();
  /// The order of a locale such as "de_DE" or "sv_SE.UTF-8". Unknown locales, and "C" and "POSIX" (which
  /// would sort by code point), use the root order, which is independent of any language.
  explicit LocalizedOrder(const std::string& locale);
  ~LocalizedOrder();
  LocalizedOrder(const LocalizedOrder&) = delete;
  LocalizedOrder& operator=(const LocalizedOrder&) = delete;
  LocalizedOrder(LocalizedOrder&&) noexcept;
  LocalizedOrder& operator=(LocalizedOrder&&) noexcept;

  [[nodiscard]] bool precedes(std::string_view first, std::string_view second) const;

private:
  struct Rules;
  explicit LocalizedOrder(std::unique_ptr<const Rules> rules);

  std::unique_ptr<const Rules> rules_;
};

}  // namespace tilwin
