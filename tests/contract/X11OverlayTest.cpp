#include <gtest/gtest.h>

#include "tests/contract/OverlaidDesktop.h"

namespace tilwin::x11 {

TEST_F(ShownOverlay, IsHiddenOnAFrameWithoutAPixel) {
  desk_.show(sheet);
  desk_.overlay().show({0, 0, 0, 100});
  EXPECT_TRUE(desk_.desktop().waitUntil([this] { return !desk_.sheetWindow(); }));
}

TEST_F(ShownOverlay, IsInNoListOfWindows) {
  const auto window = desk_.session().window({.area = {150, 120, 300, 200}});
  ASSERT_TRUE(window.waitUntil([&] { return window.hasFocus(); }));
  desk_.show(sheet);
  desk_.desktop().settle();
  EXPECT_EQ(desk_.desktop().activeWindow(), window.id());
  ASSERT_EQ(desk_.desktop().clients().size(), 2U);
  EXPECT_NE(desk_.desktop().clients().back(), desk_.sheetWindow());
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

TEST_F(ShownOverlay, IsInFrontOfUnmanagedWindowsAfterEachShow) {
  desk_.show(sheet);
  const auto window = desk_.session().window({.area = {150, 120, 300, 200}, .overrideRedirect = true});
  const auto front = [&] {
    const auto inView = desk_.desktop().inView();
    return inView.empty() ? std::nullopt : std::optional(inView.back());
  };
  ASSERT_EQ(front(), window.id());
  desk_.overlay().show(sheet);
  desk_.desktop().waitUntil([&] { return front() != window.id(); });
  EXPECT_EQ(front(), desk_.sheetWindow());
}

}  // namespace tilwin::x11
