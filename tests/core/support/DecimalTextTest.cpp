#include "core/support/DecimalText.h"

#include <gtest/gtest.h>

#include <locale>
#include <string>

namespace tilwin {
namespace {

/// The user's locale has a comma where programs have a point, and groups thousands.
class CommaLocale {
public:
  CommaLocale() : before_(std::locale::global(std::locale(std::locale::classic(), new Comma))) {}
  CommaLocale(const CommaLocale&) = delete;
  CommaLocale& operator=(const CommaLocale&) = delete;
  ~CommaLocale() { std::locale::global(before_); }

private:
  struct Comma final : std::numpunct<char> {
    [[nodiscard]] char do_decimal_point() const override { return ','; }
    [[nodiscard]] char do_thousands_sep() const override { return '.'; }
    [[nodiscard]] std::string do_grouping() const override { return "\3"; }
  };

  std::locale before_;
};

}  // namespace

TEST(DecimalText, IsRoundedToItsPlaces) {
  EXPECT_EQ(decimalText(66.66, 0), "67");
  EXPECT_EQ(decimalText(66.66, 1), "66.7");
  EXPECT_EQ(decimalText(-1, 2), "-1.00");
}

TEST(DecimalText, HasAPointInEveryLocale) {
  const CommaLocale german;
  EXPECT_EQ(decimalText(1234567.5, 1), "1234567.5");
}

}  // namespace tilwin
