#include "core/layouts/LayoutPlanner.h"

#include <gmock/gmock.h>

#include "tests/core/layouts/Layouts.h"

namespace tilwin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string editor = "org.example.editor";
const std::string mail = "org.example.mail";

/// What is open, on which displays, and what the user's settings are.
struct Planning {
  std::vector<WindowInfo> windows;
  std::vector<DisplayInfo> displays = displaysAt("1000x800+0+0");
  double outer = 0;
  double gap = 0;
  bool includeMinimized = false;

  [[nodiscard]] LayoutPlan plan(std::vector<LayoutSlot> slots) const {
    return LayoutPlanner::plan(layoutOf(std::move(slots)), windows, displays, outer, gap, includeMinimized);
  }
  /// Whether the slot finds a window.
  [[nodiscard]] bool finds(const LayoutSlot& slot) const { return plan({slot}).unmatched.empty(); }
};

TEST(LayoutPlanner, WithoutDisplaysPlacesNothingAndMatchesNoSlot) {
  const Planning given{.windows = {windowOf(editor, 1)}, .displays = {}};
  const auto plan = given.plan({slotFor(editor), slotFor(mail)});
  EXPECT_THAT(plan.placements, IsEmpty());
  EXPECT_THAT(plan.unmatched, ElementsAre(slotFor(editor), slotFor(mail)));
}

TEST(LayoutPlanner, NeverMatchesASlotThatNamesNoApplication) {
  const Planning given{.windows = {{.id = 1, .title = "Letter"}}};
  EXPECT_FALSE(given.finds({.target = leftPart}));
  EXPECT_FALSE(given.finds({.bundleID = "", .appName = "", .target = leftPart}));
  EXPECT_FALSE(given.finds({.titleContains = "Letter", .target = leftPart}));
}

TEST(LayoutPlanner, MatchesTheBundleIdentifierIgnoringCase) {
  const Planning given{.windows = {windowOf("com.example.app", 1)}};
  EXPECT_TRUE(given.finds(slotFor("COM.EXAMPLE.APP")));
  EXPECT_FALSE(given.finds(slotFor("com.example.ap")));
}

TEST(LayoutPlanner, MatchesTheNameIgnoringCaseWhenThereIsNoBundleIdentifier) {
  const Planning given{.windows = {{.id = 1, .bundleID = mail, .appName = "Écran"}}};
  EXPECT_TRUE(given.finds(slotNamed("éCRAN")));
  EXPECT_TRUE(given.finds({.bundleID = "", .appName = "Écran", .target = leftPart}));
  EXPECT_FALSE(given.finds(slotNamed("Ecran")));
}

TEST(LayoutPlanner, DoesNotConsultTheNameWhenABundleIdentifierIsGiven) {
  const Planning given{.windows = {{.id = 1, .bundleID = mail, .appName = "Mail"}}};
  EXPECT_FALSE(given.finds({.bundleID = editor, .appName = "Mail", .target = leftPart}));
}

TEST(LayoutPlanner, NarrowsTheChoiceByTheTitleIgnoringCaseAndDiacritics) {
  const Planning given{.windows = {{.id = 1, .bundleID = editor, .title = "Résumé.txt"},
                                   {.id = 2, .bundleID = editor, .title = "Straße"}}};
  EXPECT_THAT(windowIDs(given.plan({slotTitled(editor, "STRASSE")})), ElementsAre(2));
  EXPECT_THAT(windowIDs(given.plan({slotTitled(editor, "RESUME")})), ElementsAre(1));
  EXPECT_THAT(windowIDs(given.plan({slotTitled(editor, "re\u0301sum")})), ElementsAre(1));
  EXPECT_FALSE(given.finds(slotTitled(editor, "resumes")));
}

TEST(LayoutPlanner, TakesAnyTitleWhenNoneIsAskedFor) {
  const Planning given{.windows = {{.id = 1, .bundleID = editor, .title = ""}}};
  EXPECT_TRUE(given.finds(slotFor(editor)));
  EXPECT_TRUE(given.finds(slotTitled(editor, "")));
}

TEST(LayoutPlanner, GivesTwoSlotsOfOneApplicationItsTwoFrontmostWindows) {
  const Planning given{
      .windows = {windowOf(editor, 50, 5), windowOf(editor, 20, 2), windowOf(editor, 90, 9)}};
  EXPECT_THAT(windowIDs(given.plan({slotFor(editor), slotFor(editor)})), ElementsAre(20, 50));
}

TEST(LayoutPlanner, KeepsTheOrderGivenAmongWindowsOfTheSameRank) {
  const Planning given{.windows = {windowOf(editor, 7, 1), windowOf(editor, 3, 1)}};
  EXPECT_THAT(windowIDs(given.plan({slotFor(editor), slotFor(editor)})), ElementsAre(7, 3));
}

TEST(LayoutPlanner, LeavesAWindowThatOneSlotTookToNoOtherHoweverTheyAsk) {
  const Planning given{.windows = {{.id = 1, .bundleID = editor, .appName = "Editor", .title = "Letter"}}};
  const auto plan = given.plan({slotTitled(editor, "letter"), slotNamed("editor"), slotFor(editor)});
  EXPECT_THAT(windowIDs(plan), ElementsAre(1));
  EXPECT_THAT(plan.unmatched, ElementsAre(slotNamed("editor"), slotFor(editor)));
}

TEST(LayoutPlanner, ComesBackToWindowsThatAnEarlierTitleDidNotFit) {
  const Planning given{.windows = {{.id = 1, .bundleID = editor, .title = "Notes", .zOrder = 1},
                                   {.id = 2, .bundleID = editor, .title = "Letter", .zOrder = 2}}};
  EXPECT_THAT(windowIDs(given.plan({slotTitled(editor, "letter"), slotFor(editor)})), ElementsAre(2, 1));
}

TEST(LayoutPlanner, PlacesAnIdThatIsListedTwiceOnlyOnce) {
  const Planning given{.windows = {windowOf(editor, 1), windowOf(editor, 1)}};
  EXPECT_THAT(windowIDs(given.plan({slotFor(editor), slotFor(editor)})), ElementsAre(1));
}

TEST(LayoutPlanner, PassesOverMinimizedWindowsUnlessAskedToIncludeThem) {
  Planning given{.windows = {{.id = 1, .bundleID = editor, .isMinimized = true}}};
  EXPECT_FALSE(given.finds(slotFor(editor)));
  given.includeMinimized = true;
  EXPECT_TRUE(given.finds(slotFor(editor)));
}

TEST(LayoutPlanner, TakesTheNearestDisplayForAnIndexOutsideTheOrder) {
  Planning given{.windows = {windowOf(editor, 1)}, .displays = displaysAt("800x600+1000+0,1000x800+0+0")};
  const auto displayOf = [&](std::int64_t index) {
    return given.plan({slotFor(editor, leftPart, index)}).placements.at(0).displayID;
  };
  EXPECT_EQ(displayOf(-3), 2U) << "the leftmost";
  EXPECT_EQ(displayOf(0), 2U);
  EXPECT_EQ(displayOf(1), 1U);
  EXPECT_EQ(displayOf(7), 1U) << "the rightmost";
}

TEST(LayoutPlanner, KeepsMarginAndGapForCellsOfAGrid) {
  Planning given{.windows = {windowOf(editor, 4)}, .outer = 8, .gap = 8};
  given.displays.at(0).visibleFrame = {0, 25, 1440, 875};
  const auto plan = given.plan({slotFor(editor, GridRegion{2, 1, 1, 0, 1, 1})});
  EXPECT_THAT(plan.placements, ElementsAre(Placement{4, {724, 33, 708, 859}, 1}));
}

TEST(LayoutPlanner, KeepsNoMarginForFractions) {
  Planning given{.windows = {windowOf(editor, 4)}, .outer = 8, .gap = 8};
  given.displays.at(0).visibleFrame = {0, 20, 1000, 780};
  const auto plan = given.plan({slotFor(editor, NormalizedRect{0.5, 0, 0.5, 1})});
  EXPECT_THAT(plan.placements, ElementsAre(Placement{4, {500, 20, 500, 780}, 1}));
}

TEST(LayoutPlanner, ListsPlacementsAndUnmatchedSlotsInSlotOrder) {
  const Planning given{.windows = {windowOf(mail, 2), windowOf(editor, 1)}};
  const auto plan =
      given.plan({slotFor("org.example.b"), slotFor(editor), slotFor("org.example.a"), slotFor(mail)});
  EXPECT_THAT(windowIDs(plan), ElementsAre(1, 2));
  EXPECT_THAT(plan.unmatched, ElementsAre(slotFor("org.example.b"), slotFor("org.example.a")));
}

TEST(LayoutPlanner, TakesTextThatIsNotUnicodeAsItComes) {
  const Planning given{.windows = {{.id = 1, .bundleID = "caf\xE9", .title = "\xFF\xC3"}}};
  EXPECT_TRUE(given.finds(slotFor("CAF\xE9")));
  EXPECT_FALSE(given.finds(slotTitled("caf\xE9", "\xE2\x82z")));
}

}  // namespace
}  // namespace tilwin
