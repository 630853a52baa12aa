#include <variant>

#include "core/snap/SnapController.h"
#include "tests/app/AXWindowProviderFixture.h"

namespace tilwin {
namespace {

constexpr Rect standsAtFirst{100, 100, 900, 700};
constexpr Rect tile{960, 25, 480, 805};
constexpr Rect atOuterEdge{640, 25, 800, 805};

/// A window that is never smaller than 800×600, on a display of 1440×900 with a menu bar and a dock.
struct AXWindowProviderLarge : AXWindowProviderTest {
  AXWindowProviderLarge() {
    desktop.screens.connected = {{{0, 0, 1440, 900}, {0, 70, 1440, 805}, 1}};
    id = openFocused({.frame = standsAtFirst, .least = {800, 600}});
  }

  [[nodiscard]] Rect reported() { return provider.focusedWindow().value_or(WindowInfo{}).frame; }
  /// The positions and sizes written, in order.
  [[nodiscard]] std::vector<std::string> written() {
    std::vector<std::string> names;
    for (const auto& write : tree.writes()) names.push_back(write.attribute);
    return names;
  }

  std::int64_t id = 0;
};

TEST_F(AXWindowProviderLarge, StandsAtTheOuterEdgeOfItsTile) {
  EXPECT_TRUE(provider.setFrame(id, tile));
  EXPECT_EQ(desktop.standing(opened), atOuterEdge);
  EXPECT_EQ(written(), (std::vector<std::string>{"AXPosition", "AXSize", "AXPosition", "AXPosition"}));
}

TEST_F(AXWindowProviderLarge, IsNotWrittenToAgainWhereItStandsRightAlready) {
  EXPECT_TRUE(provider.setFrame(id, {0, 25, 480, 805}));
  EXPECT_EQ(desktop.standing(opened), (Rect{0, 25, 800, 805}));
  EXPECT_EQ(written().size(), 3);
}

TEST_F(AXWindowProviderLarge, OfFixedSizeStandsInsideThoughTheMoveFails) {
  tree.refuse(opened, "AXSize");
  EXPECT_FALSE(provider.setFrame(id, tile));
  EXPECT_EQ(desktop.standing(opened), (Rect{540, 25, 900, 700}));
}

TEST_F(AXWindowProviderLarge, ThatCannotBeMovedIsNotTriedAgain) {
  tree.refuse(opened, "AXPosition");
  EXPECT_FALSE(provider.setFrame(id, tile));
  EXPECT_EQ(written().size(), 3);
  EXPECT_EQ(reported(), (Rect{100, 100, 800, 805}));
}

TEST_F(AXWindowProviderLarge, IsMovedWhileTheEnhancedInterfaceIsOff) {
  tree.give(applicationNode(editor), "AXEnhancedUserInterface", true);
  EXPECT_TRUE(provider.setFrame(id, tile));
  EXPECT_EQ(desktop.standing(opened), atOuterEdge);
  EXPECT_EQ(written().back(), "AXEnhancedUserInterface");
  EXPECT_EQ(written().size(), 6);
}

TEST_F(AXWindowProviderLarge, IsReportedAtItsTileWhileItStandsThere) {
  ASSERT_TRUE(provider.setFrame(id, tile));
  EXPECT_EQ(reported(), tile);
  const auto windows = provider.allWindows();
  ASSERT_EQ(windows.size(), 1);
  EXPECT_EQ(windows.front().frame, tile);
  EXPECT_EQ(reported(), tile) << "after a listing";
  EXPECT_EQ(provider.frame(id), atOuterEdge) << "its actual frame";
}

TEST_F(AXWindowProviderLarge, UnderThePointerHasItsActualFrame) {
  ASSERT_TRUE(provider.setFrame(id, tile));
  desktop.place(opened, atOuterEdge);
  const auto window = provider.window({700, 400});
  ASSERT_TRUE(window.has_value());
  EXPECT_EQ(window->frame, atOuterEdge);
}

TEST_F(AXWindowProviderLarge, MovedBySomebodyElseIsReportedWhereItStandsEvenIfItComesBack) {
  ASSERT_TRUE(provider.setFrame(id, tile));
  desktop.place(opened, {10, 40, 800, 700});
  EXPECT_EQ(reported(), (Rect{10, 40, 800, 700}));
  desktop.place(opened, atOuterEdge);
  EXPECT_EQ(reported(), atOuterEdge);
}

TEST_F(AXWindowProviderLarge, AskedForAFrameItFitsIsReportedWhereItStandsLater) {
  ASSERT_TRUE(provider.setFrame(id, tile));
  ASSERT_TRUE(provider.setFrame(id, {640, 25, 800, 805}));
  EXPECT_EQ(reported(), atOuterEdge);
}

TEST_F(AXWindowProviderLarge, StillCyclesAndIsRestored) {
  const std::shared_ptr<WindowProvider> windows(&provider, [](WindowProvider*) {});
  SnapController controller(windows);
  for (const Rect& expected : {atOuterEdge, Rect{480, 25, 960, 805}, atOuterEdge, atOuterEdge}) {
    ASSERT_TRUE(controller.perform(SnapAction::rightHalf));
    EXPECT_EQ(desktop.standing(opened), expected);
  }
  ASSERT_TRUE(controller.perform(SnapAction::restore));
  EXPECT_EQ(desktop.standing(opened), standsAtFirst);
}

}  // namespace
}  // namespace tilwin
