#include "tests/app/AXWindowProviderFixture.h"

namespace tilwin {
namespace {

constexpr Rect somewhere{300, 200, 500, 400};

TEST_F(AXWindowProviderTest, AnIdNobodyWasGivenMeansNothing) {
  opened = desktop.open(editor);
  EXPECT_FALSE(provider.frame(static_cast<std::int64_t>(opened)));
  EXPECT_FALSE(provider.setFrame(static_cast<std::int64_t>(opened), somewhere));
  EXPECT_FALSE(provider.setFrame(-1, somewhere));
  EXPECT_TRUE(tree.writes().empty());
}

TEST_F(AXWindowProviderTest, AWindowHasTheSameIdHoweverItIsAskedFor) {
  const auto id = openFocused({.frame = {0, 0, 100, 100}});
  EXPECT_EQ(provider.window({50, 50}).value().id, id);
  EXPECT_EQ(provider.allWindows().at(0).id, id);
  EXPECT_EQ(provider.focusedWindow().value().id, id);
}

TEST_F(AXWindowProviderTest, ListingForgetsTheIdOfAWindowThatIsGone) {
  const auto id = openFocused();
  desktop.close(opened);
  EXPECT_TRUE(provider.allWindows().empty());
  tree.forgetWrites();
  EXPECT_FALSE(provider.setFrame(id, somewhere));
  EXPECT_TRUE(tree.writes().empty()) << "the window was still known";
}

TEST_F(AXWindowProviderTest, ListingForgetsAWindowThatIsThereButNotListed) {
  const auto id = openFocused({.subrole = "AXDialog"});
  EXPECT_TRUE(provider.setFrame(id, somewhere));
  EXPECT_TRUE(provider.allWindows().empty());
  EXPECT_FALSE(provider.setFrame(id, somewhere));
  EXPECT_FALSE(provider.frame(id));
}

TEST_F(AXWindowProviderTest, AskingForTheFocusedWindowOrAPointForgetsNothing) {
  const auto first = openFocused({.frame = {0, 0, 100, 100}});
  const auto second = openFocused({.frame = {200, 0, 100, 100}});
  ASSERT_TRUE(provider.window({250, 50}));
  EXPECT_TRUE(provider.frame(first));
  EXPECT_TRUE(provider.frame(second));
}

TEST_F(AXWindowProviderTest, AnIdThatComesAgainMeansTheLastWindowItWasGivenFor) {
  const Node first = desktop.open(editor, {.frame = {0, 0, 100, 100}});
  tree.setHash(first, 7);
  ASSERT_EQ(provider.focusedWindow().value().id, 7);
  const Node second = desktop.open(editor, {.frame = {200, 0, 100, 100}});
  tree.setHash(second, 7);
  ASSERT_EQ(provider.focusedWindow().value().id, 7);
  EXPECT_TRUE(provider.setFrame(7, somewhere));
  EXPECT_EQ(desktop.standing(first), (Rect{0, 0, 100, 100}));
  EXPECT_EQ(desktop.standing(second), somewhere);
}

TEST_F(AXWindowProviderTest, AWindowThatCouldNotBeReadHasNoId) {
  opened = desktop.open(editor);
  tree.setHash(opened, 7);
  tree.take(opened, "AXSize");
  EXPECT_FALSE(provider.focusedWindow());
  EXPECT_FALSE(provider.setFrame(7, somewhere));
  EXPECT_TRUE(tree.writes().empty());
}

TEST_F(AXWindowProviderTest, TheFrameIsReadAfreshEachTime) {
  const auto id = openFocused({.frame = {10, 20, 300, 200}});
  EXPECT_EQ(provider.frame(id), (Rect{10, 20, 300, 200}));
  desktop.place(opened, somewhere);
  EXPECT_EQ(provider.frame(id), somewhere);
}

TEST_F(AXWindowProviderTest, AFrameOfWhichAPartCannotBeReadIsNone) {
  const auto id = openFocused();
  tree.give(opened, "AXSize", "large");
  EXPECT_FALSE(provider.frame(id));
  const auto other = openFocused();
  tree.take(opened, "AXPosition");
  EXPECT_FALSE(provider.frame(other));
}

TEST_F(AXWindowProviderTest, AWindowThatIsGoneHasNoFrame) {
  const auto id = openFocused();
  desktop.close(opened);
  EXPECT_FALSE(provider.frame(id));
}

}  // namespace
}  // namespace tilwin
