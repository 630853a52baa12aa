#include <gtest/gtest.h>

#include "tests/contract/OverlaidDesktop.h"

namespace tilwin::x11 {

using desktop::Manager;

TEST(X11Overlay, MakesNoWindowBeforeItIsShown) {
  OverlaidDesktop desk(Manager::openbox, false);
  const auto children = [&] {
    auto& witness = desk.desktop().connection();
    const desktop::XcbPtr<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(witness.get(), xcb_query_tree(witness.get(), witness.root()), nullptr));
    return tree->children_len;
  };
  const auto before = children();
  X11Overlay fresh(desk.x(), OverlaidDesktop::accent);
  fresh.hide();
  desk.x().flush();
  desk.desktop().settle();
  EXPECT_EQ(children(), before);
}

TEST_F(ShownOverlay, StandsWhereItIsShownAndMovesWithEachShow) {
  for (const Rect& at : {sheet, Rect{0, 0, 800, 600}, Rect{400, 300, 400, 300}, Rect{-20, -10, 300, 200}}) {
    EXPECT_NE(desk_.show(at), 0U);
  }
}

TEST_F(ShownOverlay, IsGoneOnceHiddenAndBackWhenShownAgain) {
  desk_.show(sheet);
  desk_.overlay().hide();
  EXPECT_TRUE(desk_.desktop().waitUntil([this] { return !desk_.sheetWindow(); }));
  desk_.overlay().hide();
  desk_.show(sheet);
}

TEST_F(ShownOverlay, IsNotShownOnAFrameOutsideOfAnyScreen) {
  desk_.overlay().show({0, 0, std::nan(""), 100});
  desk_.overlay().show({1e9, 0, 100, 100});
  desk_.overlay().show({0, 0, 0, 100});
  desk_.desktop().settle();
  EXPECT_FALSE(desk_.sheetWindow());
}

TEST_F(ShownOverlay, TakesNoFocusAndIsInNoListOfWindows) {
  const auto window = desk_.session().window({.area = {150, 120, 300, 200}});
  ASSERT_TRUE(window.waitUntil([&] { return window.hasFocus(); }));
  desk_.show(sheet);
  desk_.desktop().settle();
  EXPECT_TRUE(window.hasFocus());
  EXPECT_EQ(desk_.desktop().activeWindow(), window.id());
  ASSERT_EQ(desk_.desktop().clients().size(), 2U);
  EXPECT_NE(desk_.desktop().clients().back(), desk_.sheetWindow());
}

TEST_F(ShownOverlay, LetsClicksThroughTheRing) {
  const auto window = desk_.session().window({.area = {150, 120, 300, 200}});
  desk_.show(sheet);
  expectClicksToReach(window, {300, 240});
}

TEST_F(ShownOverlay, LetsClicksThroughWhereItIsTranslucent) {
  auto compositor = desk_.startCompositor();
  const auto window = desk_.session().window({.area = {150, 120, 300, 200}});
  desk_.show(sheet);
  expectClicksToReach(window, {300, 240});
  desk_.end(compositor);
}

TEST_F(ShownOverlay, LetsClicksThroughItsBorder) {
  desk_.show(sheet);
  desk_.session().input().movePointer({300, 80});
  EXPECT_EQ(desk_.underPointer(), desk_.backgroundWindow());
}

TEST_F(ShownOverlay, IsInFrontAfterEachShow) {
  desk_.show(sheet);
  const auto window = desk_.session().window({.area = {150, 120, 300, 200}, .overrideRedirect = true});
  const auto front = [&] {
    const auto inView = desk_.inView();
    return inView.empty() ? std::nullopt : std::optional(inView.back());
  };
  ASSERT_EQ(front(), window.id());
  desk_.overlay().show(sheet);
  desk_.desktop().waitUntil([&] { return front() != window.id(); });
  EXPECT_EQ(front(), desk_.sheetWindow());
}

}  // namespace tilwin::x11
