#include "core/commands/NearestWord.h"

#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace tilwin {
namespace {

constexpr std::array<std::string_view, 4> words{"leftHalf", "leftThird", "rightHalf", "center"};

std::optional<std::string> nearest(std::string_view word) { return NearestWord::of(word, words); }

TEST(NearestWord, IsFoundDespiteOneSlip) {
  EXPECT_EQ(nearest("leftHlaf"), "leftHalf");   // exchanged
  EXPECT_EQ(nearest("letHalf"), "leftHalf");    // left out
  EXPECT_EQ(nearest("leftHaalf"), "leftHalf");  // doubled
  EXPECT_EQ(nearest("centre"), "center");
}

TEST(NearestWord, DoesNotMindCaseAndHyphens) {
  EXPECT_EQ(nearest("LEFT-HALF"), "leftHalf");
  EXPECT_EQ(nearest("left-third"), "leftThird");
}

TEST(NearestWord, IsTheOneWithTheFewestEdits) { EXPECT_EQ(nearest("rihtHalf"), "rightHalf"); }

TEST(NearestWord, IsNoneIfMoreThanAThirdDiffers) {
  EXPECT_EQ(nearest("hypotenuse"), std::nullopt);
  EXPECT_EQ(nearest(""), std::nullopt);
  EXPECT_EQ(nearest(std::string(100000, 'l')), std::nullopt);
}

TEST(NearestWord, IsAskedFor) {
  EXPECT_EQ(NearestWord::question("centr", words), " Did you mean \"center\"?");
  EXPECT_EQ(NearestWord::question("hypotenuse", words), "");
}

}  // namespace
}  // namespace tilwin
