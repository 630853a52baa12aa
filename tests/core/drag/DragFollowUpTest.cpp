#include "core/drag/DragFollowUp.h"

#include <gtest/gtest.h>

#include <vector>

namespace tilwin {
namespace {

TEST(DragFollowUp, IsStoredUnderTheNameOfItsCase) {
  EXPECT_EQ(DragFollowUps::rawValue(DragFollowUp::restoredOrMovedAway), "restoredOrMovedAway");
  EXPECT_EQ(DragFollowUps::rawValue(DragFollowUp::keptSnap), "keptSnap");
  EXPECT_EQ(DragFollowUps::rawValue(DragFollowUp::draggedBackToSameEdge), "draggedBackToSameEdge");
  EXPECT_EQ(DragFollowUps::rawValue(DragFollowUp::leftAlone), "leftAlone");
}

TEST(DragFollowUp, IsOneOfFourInTheOrderOfTheCases) {
  const auto all = DragFollowUps::all();
  EXPECT_EQ(std::vector(all.begin(), all.end()),
            (std::vector{DragFollowUp::restoredOrMovedAway, DragFollowUp::keptSnap,
                         DragFollowUp::draggedBackToSameEdge, DragFollowUp::leftAlone}));
}

TEST(DragFollowUp, IsFoundByItsName) {
  for (const DragFollowUp each : DragFollowUps::all())
    EXPECT_EQ(DragFollowUps::fromRawValue(DragFollowUps::rawValue(each)), each);
}

TEST(DragFollowUp, IsNotFoundByAnyOtherName) {
  EXPECT_EQ(DragFollowUps::fromRawValue("keptsnap"), std::nullopt);
  EXPECT_EQ(DragFollowUps::fromRawValue("keptSnap "), std::nullopt);
  EXPECT_EQ(DragFollowUps::fromRawValue(""), std::nullopt);
}

TEST(DragFollowUp, TeachesFullyWhereTheUserCorrectedAndWeaklyWhereNothingHappened) {
  using Lesson = DragFollowUps::Lesson;
  EXPECT_EQ(DragFollowUps::lesson(DragFollowUp::restoredOrMovedAway), (Lesson{.snap = false, .weight = 1.0}));
  EXPECT_EQ(DragFollowUps::lesson(DragFollowUp::keptSnap), (Lesson{.snap = true, .weight = 0.4}));
  EXPECT_EQ(DragFollowUps::lesson(DragFollowUp::draggedBackToSameEdge),
            (Lesson{.snap = true, .weight = 1.0}));
  EXPECT_EQ(DragFollowUps::lesson(DragFollowUp::leftAlone), (Lesson{.snap = false, .weight = 0.25}));
}

}  // namespace
}  // namespace tilwin
