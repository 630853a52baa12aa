#include "tests/app/AXWindowProviderFixture.h"

namespace tilwin {
namespace {

constexpr Point onNothing{900, 700};
constexpr Point onElement{60, 60};

/// A window with elements inside one another, the innermost of them under a point.
struct AXWindowProviderPoint : AXWindowProviderTest {
  /// Puts an element this many levels below the window under the point; its ancestors from itself upward.
  std::vector<Node> nest(int levels) {
    std::vector<Node> ancestors{opened};
    for (int level = 0; level < levels; ++level) {
      ancestors.insert(ancestors.begin(), desktop.nest(ancestors.front()));
    }
    tree.cover({50, 50, 20, 20}, ancestors.front());
    return ancestors;
  }
  static void giveFrame(SimulatedAccessibility& to, Node node, const Rect& frame) {
    to.give(node, "AXPosition", Point{frame.x, frame.y});
    to.give(node, "AXSize", Size{frame.width, frame.height});
  }
  std::string titleAt(Point at) {
    const auto found = provider.window(at);
    return found ? found->title : "nothing";
  }

  Node window = opened = desktop.open(editor, {.title = "text", .frame = {0, 0, 200, 100}});
};

TEST_F(AXWindowProviderPoint, WhereThereIsNoElementThereIsNoWindow) {
  EXPECT_FALSE(provider.window(onNothing));
}

TEST_F(AXWindowProviderPoint, TheWindowUnderAPointIsDescribedInFull) {
  tree.setHash(window, 12);
  const WindowInfo expected{.id = 12,
                            .bundleID = "org.example.Editor",
                            .appName = "Editor",
                            .title = "text",
                            .frame = {0, 0, 200, 100},
                            .zOrder = 0};
  EXPECT_EQ(provider.window({199, 99}), expected);
  EXPECT_TRUE(provider.frame(12));
}

TEST_F(AXWindowProviderPoint, TheWindowAboveOthersIsFound) {
  desktop.open(launch("Reader"), {.title = "page", .frame = {100, 0, 200, 100}});
  EXPECT_EQ(titleAt({150, 50}), "page");
  EXPECT_EQ(titleAt({90, 50}), "text");
}

TEST_F(AXWindowProviderPoint, AWindowUpToSevenLevelsAboveIsFoundByItsRole) {
  for (int levels = 0; levels <= 7; ++levels) {
    tree.give(window, "AXParent", "nobody asks");
    nest(levels);
    EXPECT_EQ(titleAt(onElement), "text") << levels;
  }
}

TEST_F(AXWindowProviderPoint, TheEighthAncestorIsTakenForTheWindowWithoutBeingAsked) {
  nest(8);
  tree.give(window, "AXRole", "AXGroup");
  EXPECT_EQ(titleAt(onElement), "text");
}

TEST_F(AXWindowProviderPoint, DeeperBelowItsWindowTheEighthAncestorIsFoundInsteadOfIt) {
  const auto ancestors = nest(9);
  tree.give(ancestors[8], "AXTitle", "pane");
  EXPECT_EQ(titleAt(onElement), "nothing") << "a pane without a frame is no window";
  giveFrame(tree, ancestors[8], {10, 10, 50, 50});
  EXPECT_EQ(titleAt(onElement), "pane");
  EXPECT_EQ(provider.window(onElement).value().frame, (Rect{10, 10, 50, 50}));
}

TEST_F(AXWindowProviderPoint, TheNearestOfTwoWindowsAboveCounts) {
  const auto ancestors = nest(4);
  tree.give(ancestors[2], "AXRole", "AXWindow");
  tree.give(ancestors[2], "AXTitle", "sheet");
  giveFrame(tree, ancestors[2], {20, 20, 100, 50});
  EXPECT_EQ(titleAt(onElement), "sheet");
}

TEST_F(AXWindowProviderPoint, AWayUpThatEndsBeforeAnyWindowFindsNothing) {
  const auto ancestors = nest(5);
  giveFrame(tree, ancestors[3], {0, 0, 50, 50});
  tree.take(ancestors[3], "AXParent");
  EXPECT_EQ(titleAt(onElement), "nothing");
  tree.give(ancestors[3], "AXParent", "text");
  EXPECT_EQ(titleAt(onElement), "nothing") << "a text is no parent";
}

TEST_F(AXWindowProviderPoint, TheEighthStepNeedsAParentToo) {
  const auto ancestors = nest(8);
  giveFrame(tree, ancestors[7], {0, 0, 50, 50});
  tree.take(ancestors[7], "AXParent");
  EXPECT_EQ(titleAt(onElement), "nothing");
}

TEST_F(AXWindowProviderPoint, AnElementWithoutARoleIsNoWindowButHasAParent) {
  const auto ancestors = nest(2);
  tree.take(ancestors[0], "AXRole");
  tree.give(ancestors[1], "AXRole", true);
  EXPECT_EQ(titleAt(onElement), "text");
}

TEST_F(AXWindowProviderPoint, AWindowOfAnySubroleIsFound) {
  desktop.open(editor, {.title = "Save changes?", .frame = {0, 0, 50, 50}, .subrole = "AXDialog"});
  EXPECT_EQ(titleAt({25, 25}), "Save changes?");
}

TEST_F(AXWindowProviderPoint, AWindowOfAProgramThatIsNotRegularIsFound) {
  const auto agent = desktop.launch({.bundleIdentifier = "org.example.agent", .isRegular = false});
  desktop.open(agent, {.title = "agent", .frame = {0, 0, 50, 50}});
  EXPECT_EQ(titleAt({25, 25}), "agent");
}

TEST_F(AXWindowProviderPoint, AWindowWhoseProgramIsUnknownOrNotRunningIsNone) {
  tree.forgetProcess(window);
  EXPECT_EQ(titleAt(onElement), "nothing");
  desktop.open(4242, {.title = "orphan", .frame = {0, 0, 50, 50}});
  EXPECT_EQ(titleAt({25, 25}), "nothing");
}

TEST_F(AXWindowProviderPoint, ThisProgramsOwnWindowsAreNotFound) {
  desktop.workspace.own = "org.example.Editor";
  EXPECT_EQ(titleAt(onElement), "nothing");
}

TEST_F(AXWindowProviderPoint, WithoutABundleOfItsOwnThisProgramFindsNoneWithoutABundle) {
  desktop.open(desktop.launch({.localizedName = "script"}), {.title = "script", .frame = {0, 0, 50, 50}});
  EXPECT_EQ(titleAt({25, 25}), "script");
  desktop.workspace.own.reset();
  EXPECT_EQ(titleAt({25, 25}), "nothing");
  EXPECT_EQ(titleAt({150, 50}), "text");
}

TEST_F(AXWindowProviderPoint, TheElementThatWasFoundDecidesWhoseWindowItIs) {
  const auto helper = launch("Helper");
  const Node embedded = tree.add(helper);
  tree.give(embedded, "AXParent", tree.reference(window));
  tree.cover({50, 50, 20, 20}, embedded);
  EXPECT_EQ(provider.window(onElement).value().appName, "Editor");
}

TEST_F(AXWindowProviderPoint, AWindowWithoutAFrameIsNone) {
  tree.take(window, "AXPosition");
  EXPECT_EQ(titleAt(onElement), "nothing");
}

TEST_F(AXWindowProviderPoint, WithoutPermissionNoWindowIsFound) {
  tree.isTrusted = false;
  EXPECT_EQ(titleAt(onElement), "nothing");
}

}  // namespace
}  // namespace tilwin
