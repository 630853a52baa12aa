#include "core/snap/actions/GridRegion.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <limits>
#include <unordered_set>

#include "tests/core/Arbitrary.h"

namespace tilwin {
namespace {

GridRegion decoded(std::int64_t columns, std::int64_t rows, std::int64_t col, std::int64_t row,
                   std::int64_t colSpan, std::int64_t rowSpan) {
  GridRegion region;
  region.columns = columns;
  region.rows = rows;
  region.col = col;
  region.row = row;
  region.colSpan = colSpan;
  region.rowSpan = rowSpan;
  return region;
}

TEST(GridRegion, ConstructorBringsEveryArgumentIntoRange) {
  EXPECT_EQ(GridRegion(0, 2, 5, -1, 9, 0), decoded(1, 2, 0, 0, 1, 1));
  EXPECT_EQ(GridRegion(3, 3, 1, 2, 5, 5), decoded(3, 3, 1, 2, 2, 1));
  EXPECT_EQ(GridRegion(-4, 0, -4, 7, 0, -1), decoded(1, 1, 0, 0, 1, 1));
}

TEST(GridRegion, ConstructorLeavesWhatIsInRangeAlone) {
  EXPECT_EQ(GridRegion(4, 3, 1, 1, 3, 2), decoded(4, 3, 1, 1, 3, 2));
}

TEST(GridRegion, HalvesKeepTheMarginAndTheGap) {
  const Rect area{0, 25, 1440, 875};
  EXPECT_EQ(GridRegion(2, 1, 0, 0, 1, 1).frame(area, 8, 8), (Rect{8, 33, 708, 859}));
  EXPECT_EQ(GridRegion(2, 1, 1, 0, 1, 1).frame(area, 8, 8), (Rect{724, 33, 708, 859}));
}

TEST(GridRegion, ThirdsOfAWidthThatThreeDoesNotDivideAreRounded) {
  const Rect area{0, 0, 1000, 900};
  EXPECT_EQ(GridRegion(3, 1, 0, 0, 1, 1).frame(area, 0, 0), (Rect{0, 0, 333, 900}));
  EXPECT_EQ(GridRegion(3, 1, 1, 0, 1, 1).frame(area, 0, 0), (Rect{333, 0, 333, 900}));
  EXPECT_EQ(GridRegion(3, 1, 0, 0, 2, 1).frame(area, 0, 0), (Rect{0, 0, 667, 900}));
}

TEST(GridRegion, ASpanIncludesTheGapsBetweenItsCells) {
  EXPECT_EQ(GridRegion(4, 1, 1, 0, 3, 1).frame({0, 0, 430, 100}, 0, 10), (Rect{110, 0, 320, 100}));
}

TEST(GridRegion, TheWholeGridKeepsTheMarginOnAllFourSides) {
  EXPECT_EQ(GridRegion(1, 1, 0, 0, 1, 1).frame({10, 20, 1000, 800}, 12, 50), (Rect{22, 32, 976, 776}));
}

TEST(GridRegion, AnAreaNarrowerThanItsMarginsKeepsAPoint) {
  EXPECT_EQ(GridRegion(1, 1, 0, 0, 1, 1).frame({0, 0, 100, 800}, 60, 0), (Rect{60, 60, 1, 680}));
}

TEST(GridRegion, AGapTooLargeForTheAreaMakesCellsNegative) {
  EXPECT_EQ(GridRegion(2, 1, 0, 0, 1, 1).frame({0, 0, 100, 100}, 0, 300).width, -100);
}

TEST(GridRegion, ADecodedSpanBeyondItsGridStillHasAFrame) {
  EXPECT_EQ(decoded(2, 1, 3, 0, 2, 1).frame({0, 0, 100, 100}, 0, 0), (Rect{150, 0, 100, 100}));
}

TEST(GridRegion, DecodedNumbersAtTheEndsOfTheirRangeDoNotOverflow) {
  constexpr auto least = std::numeric_limits<std::int64_t>::min();
  constexpr auto most = std::numeric_limits<std::int64_t>::max();
  const Rect frame = decoded(least, most, least, most, least, most).frame({0, 0, 100, 100}, 1, 1);
  EXPECT_TRUE(std::isfinite(frame.x) && std::isfinite(frame.width));
  EXPECT_TRUE(std::isfinite(frame.y) && std::isfinite(frame.height));
}

TEST(GridRegion, IsHashable) {
  const std::unordered_set<GridRegion> seen{GridRegion(2, 1, 0, 0, 1, 1), GridRegion(2, 1, 0, 0, 1, 1),
                                            GridRegion(2, 1, 1, 0, 1, 1), GridRegion(1, 2, 0, 0, 1, 1)};
  EXPECT_EQ(seen.size(), 3);
}

struct Grid {
  Rect area;
  double outer = 0;
  double gap = 0;
  int columns = 1;
  int rows = 1;

  [[nodiscard]] Rect cell(int col, int row, int colSpan = 1, int rowSpan = 1) const {
    return GridRegion(columns, rows, col, row, colSpan, rowSpan).frame(area, outer, gap);
  }
};

/// A grid whose margins and gaps leave each cell ten points or more.
Grid fittingGrid() {
  return {.area = arbitrary::area(),
          .outer = 1.0 * arbitrary::whole(0, 40),
          .gap = 1.0 * arbitrary::whole(0, 12),
          .columns = arbitrary::whole(1, 7),
          .rows = arbitrary::whole(1, 6)};
}

RC_GTEST_PROP(GridRegionProperties, AnyArgumentsGiveARegionInsideItsGrid,
              (std::int64_t columns, std::int64_t rows, std::int64_t col, std::int64_t row,
               std::int64_t colSpan, std::int64_t rowSpan)) {
  const GridRegion region(columns, rows, col, row, colSpan, rowSpan);
  RC_ASSERT(region.columns >= 1);
  RC_ASSERT(region.rows >= 1);
  RC_ASSERT(region.col >= 0);
  RC_ASSERT(region.row >= 0);
  RC_ASSERT(region.colSpan >= 1);
  RC_ASSERT(region.rowSpan >= 1);
  RC_ASSERT(region.col <= region.columns - region.colSpan);
  RC_ASSERT(region.row <= region.rows - region.rowSpan);
}

RC_GTEST_PROP(GridRegionProperties, EveryRegionLiesInTheAreaLessItsMargins, ()) {
  const Grid grid = fittingGrid();
  const int col = arbitrary::whole(0, grid.columns - 1);
  const int row = arbitrary::whole(0, grid.rows - 1);
  const Rect frame = grid.cell(col, row, arbitrary::whole(1, grid.columns), arbitrary::whole(1, grid.rows));
  RC_ASSERT(frame.x >= grid.area.x + grid.outer);
  RC_ASSERT(frame.y >= grid.area.y + grid.outer);
  // The origin and the size are rounded apart.
  RC_ASSERT(frame.maxX() <= grid.area.maxX() - grid.outer + 1);
  RC_ASSERT(frame.maxY() <= grid.area.maxY() - grid.outer + 1);
}

RC_GTEST_PROP(GridRegionProperties, CellsTileTheAreaWithinOnePoint, ()) {
  const Grid grid = fittingGrid();
  for (int col = 0; col + 1 < grid.columns; ++col) {
    const double space = grid.cell(col + 1, 0).x - grid.cell(col, 0).maxX();
    RC_ASSERT(std::abs(space - grid.gap) <= 1);
  }
  for (int row = 0; row + 1 < grid.rows; ++row) {
    const double space = grid.cell(0, row + 1).y - grid.cell(0, row).maxY();
    RC_ASSERT(std::abs(space - grid.gap) <= 1);
  }
  const Rect last = grid.cell(grid.columns - 1, grid.rows - 1);
  RC_ASSERT(grid.cell(0, 0).x == grid.area.x + grid.outer);
  RC_ASSERT(std::abs(last.maxX() - (grid.area.maxX() - grid.outer)) <= 1);
  RC_ASSERT(std::abs(last.maxY() - (grid.area.maxY() - grid.outer)) <= 1);
}

RC_GTEST_PROP(GridRegionProperties, ASpanReachesFromItsFirstCellToItsLast, ()) {
  const Grid grid = fittingGrid();
  const int first = arbitrary::whole(0, grid.columns - 1);
  const int last = arbitrary::whole(first, grid.columns - 1);
  const Rect span = grid.cell(first, 0, last - first + 1);
  RC_ASSERT(span.x == grid.cell(first, 0).x);
  RC_ASSERT(std::abs(span.maxX() - grid.cell(last, 0).maxX()) <= 1);
}

}  // namespace
}  // namespace tilwin
