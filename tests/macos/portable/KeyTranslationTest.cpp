#include "platform/macos/input/KeyTranslation.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <utility>

namespace tilwin::macos {

constexpr std::uint64_t shiftFlag = 0x20000;
constexpr std::uint64_t controlFlag = 0x40000;
constexpr std::uint64_t optionFlag = 0x80000;
constexpr std::uint64_t commandFlag = 0x100000;

TEST(KeyTranslation, EachModifierOfACombinationHasItsBit) {
  for (const auto& [flag, bit] : {std::pair{commandFlag, 256U}, std::pair{shiftFlag, 512U},
                                  std::pair{optionFlag, 2048U}, std::pair{controlFlag, 4096U}}) {
    EXPECT_EQ(hotKeyModifiers(flag), bit);
  }
}

TEST(KeyTranslation, SeveralModifiersAddUp) {
  EXPECT_EQ(hotKeyModifiers(controlFlag | optionFlag), 4096U + 2048U);
  EXPECT_EQ(hotKeyModifiers(shiftFlag | controlFlag | optionFlag | commandFlag), 256U + 512U + 2048U + 4096U);
}

TEST(KeyTranslation, NoModifierGivesNoBit) { EXPECT_EQ(hotKeyModifiers(0), 0U); }

TEST(KeyTranslation, CapsLockTheNumericPadFnAndWhichSideOfTheKeyboardDoNotMatter) {
  constexpr std::uint64_t capsLock = 0x10000;
  constexpr std::uint64_t numericPadAndFn = 0x200000 | 0x800000;
  constexpr std::uint64_t leftControlAndNonCoalesced = 0x1 | 0x100;
  EXPECT_EQ(hotKeyModifiers(capsLock | numericPadAndFn | leftControlAndNonCoalesced), 0U);
  EXPECT_EQ(hotKeyModifiers(controlFlag | capsLock | numericPadAndFn | leftControlAndNonCoalesced), 4096U);
}

RC_GTEST_PROP(KeyTranslation, OnlyTheBitsOfCombinationsAreEverGiven, (std::uint64_t flags)) {
  RC_ASSERT((hotKeyModifiers(flags) & ~std::uint32_t{256 + 512 + 2048 + 4096}) == 0U);
  constexpr std::uint64_t told = shiftFlag | controlFlag | optionFlag | commandFlag;
  RC_ASSERT(hotKeyModifiers(flags) == hotKeyModifiers(flags & told));
}

}  // namespace tilwin::macos
