// The user's locale has a decimal point of two bytes, as in Pashto.

#include <gtest/gtest.h>

#include <clocale>
#include <stdexcept>
#include <string>
#include <vector>

#include "core/geometry/GeometryCoding.h"
#include "core/support/JsonCoding.h"
#include "tests/core/EnvironmentVariable.h"
#include "tests/core/JsonText.h"

namespace tilwin {
namespace {

using Kind = JsonError::Kind;

struct PashtoLocale : testing::Test {
  PashtoLocale() {
    if (std::setlocale(LC_ALL, "ps_AF.UTF-8") == nullptr) throw std::runtime_error("no such locale");
  }
  PashtoLocale(const PashtoLocale&) = delete;
  PashtoLocale& operator=(const PashtoLocale&) = delete;
  ~PashtoLocale() override { std::setlocale(LC_ALL, before_.c_str()); }

  static std::string decimalPoint() { return std::localeconv()->decimal_point; }

private:
  const EnvironmentVariable places_{"LOCPATH", TILWIN_LOCALES};
  const std::string before_ = std::setlocale(LC_ALL, nullptr);
};

TEST_F(PashtoLocale, FractionsAreReadAsTheyAreWritten) {
  EXPECT_EQ(read<Rect>(R"({"x":0.5,"y":-1.25e-3,"width":1e2,"height":300.75})"),
            (Rect{0.5, -0.00125, 100, 300.75}));
  EXPECT_EQ(written(0.1), "0.1");
  EXPECT_EQ(read<double>(written(0.1)), 0.1);
}

TEST_F(PashtoLocale, ANumberTooLargeForAFloatFailsOnlyItsOwnField) {
  const auto reader = JsonReader::parse("[1.5e999,0.25,1e999]");
  EXPECT_TRUE(reader.element(0).isNull());
  EXPECT_EQ(reader.element(1).number(), 0.25);
  EXPECT_TRUE(reader.element(2).isNull());
}

TEST_F(PashtoLocale, ItsDecimalPointIsNotJson) {
  expectError<double>("0" + decimalPoint() + "5", Kind::notJson, "");
}

TEST_F(PashtoLocale, RemainsTheUsersAfterReading) {
  ASSERT_EQ(decimalPoint(), "٫");
  EXPECT_EQ(read<double>("0.5"), 0.5);
  expectError<double>("0.5 0.5", Kind::notJson, "");
  EXPECT_EQ(decimalPoint(), "٫");
}

}  // namespace
}  // namespace tilwin
