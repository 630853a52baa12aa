#include "core/geometry/DisplayInfo.h"

#include <unordered_set>

#include "tests/core/Arbitrary.h"

namespace tilwin {
namespace {

DisplayInfo display(std::uint32_t id, double x, double y) {
  const Rect frame{x, y, 1000, 800};
  return {.id = id, .frame = frame, .visibleFrame = frame};
}

std::vector<std::uint32_t> ids(const std::vector<DisplayInfo>& displays) {
  std::vector<std::uint32_t> result;
  result.reserve(displays.size());
  for (const DisplayInfo& each : displays) result.push_back(each.id);
  return result;
}

TEST(DisplayOrder, GoesFromLeftToRight) {
  const auto sorted = DisplayOrder::sorted({display(1, 0, 0), display(2, -1000, 0), display(3, 1000, 0)});
  EXPECT_EQ(ids(sorted), (std::vector<std::uint32_t>{2, 1, 3}));
}

TEST(DisplayOrder, GoesDownwardAmongDisplaysThatStartAtTheSameX) {
  const auto sorted = DisplayOrder::sorted({display(1, 0, 0), display(2, 0, -800), display(3, -5, 700)});
  EXPECT_EQ(ids(sorted), (std::vector<std::uint32_t>{3, 2, 1}));
}

TEST(DisplayOrder, KeepsMirroredDisplaysAsTheyCame) {
  EXPECT_EQ(ids(DisplayOrder::sorted({display(9, 0, 0), display(4, 0, 0)})),
            (std::vector<std::uint32_t>{9, 4}));
}

TEST(DisplayOrder, OfNothingIsNothing) { EXPECT_TRUE(DisplayOrder::sorted({}).empty()); }

TEST(DisplayInfo, IsHashable) {
  const std::unordered_set<DisplayInfo> seen{display(1, 0, 0), display(1, 0, 0), display(2, 0, 0),
                                             display(1, 5, 0)};
  EXPECT_EQ(seen.size(), 3);
}

}  // namespace
}  // namespace tilwin
