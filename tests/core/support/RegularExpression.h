#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace tilwin {

/// ICU's regular expressions, the reference for hand-written scans. A pattern that does not compile is fatal.
class RegularExpression {
public:
  explicit RegularExpression(std::string_view pattern);
  ~RegularExpression();
  RegularExpression(const RegularExpression&) = delete;
  RegularExpression& operator=(const RegularExpression&) = delete;

  /// `with` may name groups of the match, as in "$1".
  [[nodiscard]] std::string replaceAll(std::string_view text, std::string_view with) const;
  [[nodiscard]] bool finds(std::string_view text) const;

private:
  struct Pattern;
  std::unique_ptr<const Pattern> pattern_;
};

}  // namespace tilwin
