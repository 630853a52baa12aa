#include "core/support/Uuid.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <unordered_set>

#include "tests/core/Arbitrary.h"

namespace tilwin {
namespace {

TEST(Uuid, IsWrittenInUpperCaseWithHyphens) {
  const Uuid uuid{
      {0x01, 0x23, 0x45, 0x67, 0x89, 0xAB, 0xCD, 0xEF, 0xFE, 0xDC, 0xBA, 0x98, 0x76, 0x54, 0x32, 0x10}};
  EXPECT_EQ(uuid.text(), "01234567-89AB-CDEF-FEDC-BA9876543210");
}

TEST(Uuid, IsReadInEitherCase) {
  const auto upper = Uuid::parse("01234567-89AB-CDEF-FEDC-BA9876543210");
  ASSERT_TRUE(upper.has_value());
  EXPECT_EQ(upper, Uuid::parse("01234567-89ab-cdef-fedc-ba9876543210"));
}

TEST(Uuid, OtherTextsAreNotRead) {
  for (const char* text :
       {"", "01234567", "0123456789ABCDEFFEDCBA9876543210", "01234567-89AB-CDEF-FEDC-BA987654321",
        "01234567-89AB-CDEF-FEDC-BA98765432100", "01234567-89AB-CDEF-FEDC-BA987654321G",
        "01234567089AB-CDEF-FEDC-BA9876543210", "{1234567-89AB-CDEF-FEDC-BA987654321}"}) {
    EXPECT_EQ(Uuid::parse(text), std::nullopt) << text;
  }
}

TEST(Uuid, RandomOnesAreDifferentAndSaySo) {
  std::unordered_set<Uuid> seen;
  for (int count = 0; count < 1000; ++count) {
    const Uuid uuid = Uuid::random();
    seen.insert(uuid);
    EXPECT_EQ(uuid.text()[14], '4') << "version";
    EXPECT_NE(std::string("89AB").find(uuid.text()[19]), std::string::npos) << "variant";
  }
  EXPECT_EQ(seen.size(), 1000);
}

RC_GTEST_PROP(UuidProperties, TextReadsBackToTheSameIdentifier, (const std::array<std::uint8_t, 16>& bytes)) {
  const Uuid uuid{bytes};
  RC_ASSERT(Uuid::parse(uuid.text()) == uuid);
}

}  // namespace
}  // namespace tilwin
