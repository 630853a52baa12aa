#include <gmock/gmock.h>

#include "core/layouts/LayoutPlanner.h"
#include "tests/core/layouts/Layouts.h"

namespace tilwin {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string sideBySide = "1000x800+0+0,2000x1000+1000+0";

Layout capture(const std::vector<WindowInfo>& windows, const std::vector<DisplayInfo>& displays) {
  return LayoutPlanner::snapshot(windows, displays, "Desk", false, at(5));
}

WindowInfo windowAt(const Rect& frame) { return {.id = 1, .bundleID = "org.example.editor", .frame = frame}; }

std::int64_t displayIndexOf(const Rect& frame, std::string_view displays) {
  return capture({windowAt(frame)}, displaysAt(displays)).slots.at(0).displayIndex;
}

TEST(Snapshot, CarriesNameDateOriginAndTheDisplays) {
  const auto displays = displaysAt(sideBySide);
  const Layout layout = LayoutPlanner::snapshot({}, displays, "Automatic", true, at(7));
  EXPECT_EQ(layout.name, "Automatic");
  EXPECT_TRUE(layout.isAutomatic);
  EXPECT_EQ(layout.updatedAt, at(7));
  EXPECT_EQ(layout.signature, DisplaySignature(displays));
  EXPECT_FALSE(capture({}, displays).isAutomatic);
}

TEST(Snapshot, HasAnIdOfItsOwn) { EXPECT_NE(capture({}, {}).id, capture({}, {}).id); }

TEST(Snapshot, WithoutDisplaysHasASignatureButNoSlots) {
  const Layout layout = capture({windowAt({0, 0, 100, 100})}, {});
  EXPECT_THAT(layout.slots, IsEmpty());
  EXPECT_EQ(layout.signature, DisplaySignature(std::vector<DisplayInfo>{}));
}

TEST(Snapshot, ListsWindowsFrontToBack) {
  const auto layout =
      capture({windowOf("b", 1, 2), windowOf("a", 2, 1), windowOf("c", 3, 2)}, displaysAt(sideBySide));
  std::vector<std::string> order;
  for (const LayoutSlot& slot : layout.slots) order.push_back(*slot.bundleID);
  EXPECT_THAT(order, ElementsAre("a", "b", "c"));
}

TEST(Snapshot, LeavesOutMinimizedWindowsAndThoseOfNoKnownApplication) {
  const auto layout = capture({{.id = 1, .bundleID = "a", .frame = {0, 0, 10, 10}, .isMinimized = true},
                               {.id = 2, .appName = "Nameless", .frame = {0, 0, 10, 10}}},
                              displaysAt(sideBySide));
  EXPECT_THAT(layout.slots, IsEmpty());
}

TEST(Snapshot, KeepsIdentifierAndNameButNoTitle) {
  const auto layout = capture({{.id = 1,
                                .bundleID = "org.example.mail",
                                .appName = "Mail",
                                .title = "Inbox",
                                .frame = {0, 0, 10, 10}}},
                              displaysAt(sideBySide));
  EXPECT_EQ(layout.slots.at(0).bundleID, "org.example.mail");
  EXPECT_EQ(layout.slots.at(0).appName, "Mail");
  EXPECT_EQ(layout.slots.at(0).titleContains, std::nullopt);
}

TEST(Snapshot, ExpressesAFrameInFractionsOfTheVisibleFrame) {
  auto displays = displaysAt("1000x800+100+0");
  displays.at(0).visibleFrame = {100, 40, 1000, 760};
  const auto layout = capture({windowAt({350, 230, 500, 380})}, displays);
  EXPECT_EQ(layout.slots.at(0).target, SlotTarget(NormalizedRect{0.25, 0.25, 0.5, 0.5}));
}

TEST(Snapshot, NeverDividesByLessThanAPoint) {
  auto displays = displaysAt("1000x800+0+0");
  displays.at(0).visibleFrame = {0, 0, 0.5, 0};
  const auto layout = capture({windowAt({10, 20, 30, 40})}, displays);
  EXPECT_EQ(layout.slots.at(0).target, SlotTarget(NormalizedRect{10, 20, 30, 40}));
}

TEST(Snapshot, ChoosesTheDisplayThatShowsMostOfTheWindow) {
  EXPECT_EQ(displayIndexOf({900, 0, 300, 300}, sideBySide), 1);
  EXPECT_EQ(displayIndexOf({800, 0, 300, 300}, sideBySide), 0);
}

TEST(Snapshot, ChoosesTheEarlierDisplayForAWindowHalfOnEach) {
  EXPECT_EQ(displayIndexOf({900, 0, 200, 300}, sideBySide), 0);
  EXPECT_EQ(displayIndexOf({900, 0, 200, 300}, "2000x1000+1000+0,1000x800+0+0"), 0)
      << "earlier from left to right, however they are listed";
}

TEST(Snapshot, ChoosesTheFirstDisplayForAWindowOnNoneOrWithoutSize) {
  EXPECT_EQ(displayIndexOf({9000, 9000, 200, 300}, sideBySide), 0);
  EXPECT_EQ(displayIndexOf({1500, 100, 0, 300}, sideBySide), 0);
}

TEST(Snapshot, ComparesWholeFramesOfDisplays) {
  auto displays = displaysAt(sideBySide);
  displays.at(1).visibleFrame = {2900, 0, 100, 1000};
  EXPECT_EQ(capture({windowAt({900, 0, 300, 300})}, displays).slots.at(0).displayIndex, 1);
}

}  // namespace
}  // namespace tilwin
