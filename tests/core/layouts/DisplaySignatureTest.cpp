#include "core/layouts/DisplaySignature.h"

#include <gtest/gtest.h>

#include "core/layouts/LayoutCoding.h"
#include "tests/core/layouts/Layouts.h"

namespace tilwin {
namespace {

DisplaySignature signatureOf(std::string_view displays) { return DisplaySignature(displaysAt(displays)); }

TEST(DisplaySignature, NamesEachDisplayByItsSizeAndPlace) {
  EXPECT_EQ(signatureOf("1512x982+0+0,2560x1440+1512-200").key, "1512x982@0,0|2560x1440@1512,-200");
}

TEST(DisplaySignature, BeginsWithTheLeftmostDisplayWhateverTheOrderTheyComeIn) {
  EXPECT_EQ(signatureOf("2560x1440+1512+0,1512x982+0+0").key, "1512x982@0,0|2560x1440@1512,0");
}

TEST(DisplaySignature, OrdersDisplaysOfTheSameXByTheirY) {
  EXPECT_EQ(signatureOf("800x600+0+600,800x600+0-600,800x600+0+0").key,
            "800x600@0,-600|800x600@0,0|800x600@0,600");
}

TEST(DisplaySignature, CutsFractionsOffTowardZero) {
  const std::vector<DisplayInfo> displays{{.id = 1, .frame = {-0.9, -200.9, 1511.9, 982.5}}};
  EXPECT_EQ(DisplaySignature(displays).key, "1511x982@0,-200");
}

TEST(DisplaySignature, SeesTheWholeFrameNotTheVisibleOne) {
  const std::vector<DisplayInfo> displays{{.frame = {0, 0, 800, 600}, .visibleFrame = {0, 25, 800, 575}}};
  EXPECT_EQ(DisplaySignature(displays).key, "800x600@0,0");
}

TEST(DisplaySignature, OfNoDisplaysIsEmpty) {
  EXPECT_EQ(DisplaySignature(std::vector<DisplayInfo>{}).key, "");
}

TEST(DisplaySignature, IsTheSameAndHashesTheSameForTheSameDisplays) {
  const auto one = signatureOf("800x600+0+0,1024x768+800+0");
  const auto same = signatureOf("1024x768+800+0,800x600+0+0");
  EXPECT_EQ(one, same);
  EXPECT_EQ(std::hash<DisplaySignature>{}(one), std::hash<DisplaySignature>{}(same));
  EXPECT_NE(one, signatureOf("800x600+0+0,1024x768+800+1"));
}

TEST(DisplaySignature, IsDescribedByItsKey) {
  EXPECT_EQ(signatureOf("800x600+0+0").description(), "800x600@0,0");
}

TEST(DisplaySignature, IsAnObjectWithItsKeyInJson) {
  EXPECT_EQ(std::get<std::string>(encodeJson(signatureOf("800x600+0+0"))), R"({"key":"800x600@0,0"})");
}

}  // namespace
}  // namespace tilwin
