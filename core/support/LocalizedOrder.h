#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace tilwin {

/// Alphabetic order as a person of some locale expects it, ignoring case but not accents (Unicode Collation
/// Algorithm, UTS #10, at secondary strength). Making one costs far more than comparing: make one per sort.
/// Texts that differ in case only precede each other in neither direction. Ill-formed UTF-8 counts as U+FFFD.
class LocalizedOrder {
public:
  /// The order of the locale the environment names.
  LocalizedOrder();
  /// The order of a locale such as "de_DE" or "sv_SE.UTF-8". A locale without an order of its own, and "C"
  /// and "POSIX", whose order is that of code points, give the order that is in no language.
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
