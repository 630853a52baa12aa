#include <gmock/gmock.h>

#include "tests/core/layouts/Layouts.h"
#include "tests/core/snap/Snapping.h"

namespace tilwin {
namespace {

using testing::ElementsAre;

constexpr NormalizedRect rightPart{0.5, 0, 0.5, 1};

struct Applying : Snapping {
  Applying() : Snapping("1000x800+0+0", {}) {}

  Window openOf(const std::string& bundleID) {
    return desktop.windows.open({.bundleID = bundleID, .frame = {100, 100, 300, 300}});
  }
};

TEST(ApplyLayout, PutsEachWindowWhereItsSlotSays) {
  Applying desk;
  const auto mail = desk.openOf("mail");
  const auto notes = desk.openOf("notes");
  const auto plan = desk.controller.apply(layoutOf({slotFor("mail"), slotFor("notes", rightPart)}));
  EXPECT_EQ(desk.frame(mail), (Rect{0, 0, 400, 800}));
  EXPECT_EQ(desk.frame(notes), (Rect{500, 0, 500, 800}));
  EXPECT_THAT(windowIDs(plan), ElementsAre(mail, notes));
}

TEST(ApplyLayout, HonoursMarginAndGapOfTheSettings) {
  Applying desk;
  desk.controller.outer = 10;
  desk.controller.gap = 20;
  const auto mail = desk.openOf("mail");
  desk.controller.apply(layoutOf({slotFor("mail", GridRegion{2, 1, 1, 0, 1, 1})}));
  EXPECT_EQ(desk.frame(mail), (Rect{510, 10, 480, 780}));
}

TEST(ApplyLayout, ReportsTheSlotsWithoutAWindow) {
  Applying desk;
  desk.openOf("mail");
  EXPECT_THAT(desk.controller.apply(layoutOf({slotFor("notes"), slotFor("mail")})).unmatched,
              ElementsAre(slotFor("notes")));
}

TEST(ApplyLayout, NeverMovesWindowsOfIgnoredApplications) {
  Applying desk;
  desk.controller.ignoredBundleIDs = {"mail"};
  const auto mail = desk.openOf("mail");
  EXPECT_THAT(desk.controller.apply(layoutOf({slotFor("mail")})).unmatched, ElementsAre(slotFor("mail")));
  EXPECT_EQ(desk.frame(mail), (Rect{100, 100, 300, 300}));
}

TEST(ApplyLayout, LeavesMinimizedWindowsAlone) {
  Applying desk;
  const auto mail = desk.openOf("mail");
  desk.desktop.windows.minimize(mail);
  EXPECT_THAT(desk.controller.apply(layoutOf({slotFor("mail")})).unmatched, ElementsAre(slotFor("mail")));
}

TEST(ApplyLayout, RemembersWhereEachWindowStoodForRestore) {
  Applying desk;
  const auto mail = desk.openOf("mail");
  desk.controller.apply(layoutOf({slotFor("mail")}));
  desk.controller.apply(layoutOf({slotFor("mail", rightPart)}));
  EXPECT_TRUE(desk.controller.perform(SnapAction::restore));
  EXPECT_EQ(desk.frame(mail), (Rect{100, 100, 300, 300}));
}

TEST(ApplyLayout, GoesOnWhenOneWindowCannotBeMoved) {
  Applying desk;
  desk.desktop.windows.open({.bundleID = "mail", .answer = SimulatedWindow::Answer::refuses});
  const auto notes = desk.openOf("notes");
  const auto plan = desk.controller.apply(layoutOf({slotFor("mail"), slotFor("notes", rightPart)}));
  EXPECT_EQ(plan.placements.size(), 2U);
  EXPECT_EQ(desk.frame(notes), (Rect{500, 0, 500, 800}));
}

TEST(ApplyLayout, MovesNoWindowIntoAGridWithoutCells) {
  Applying desk;
  const auto mail = desk.openOf("mail");
  GridRegion region;
  region.columns = 0;
  desk.controller.apply(layoutOf({slotFor("mail", region)}));
  EXPECT_EQ(desk.frame(mail), (Rect{100, 100, 300, 300}));
}

TEST(ApplyLayout, TellsNobodyOfItsMoves) {
  Applying desk;
  desk.openOf("mail");
  desk.controller.apply(layoutOf({slotFor("mail")}));
  EXPECT_TRUE(desk.events.empty());
}

TEST(ApplyLayout, MatchesNoSlotOnceTheProviderIsGone) {
  SnapController orphan{std::weak_ptr<WindowProvider>{}};
  const auto plan = orphan.apply(layoutOf({slotFor("mail")}));
  EXPECT_THAT(plan.unmatched, ElementsAre(slotFor("mail")));
  EXPECT_TRUE(plan.placements.empty());
}

}  // namespace
}  // namespace tilwin
