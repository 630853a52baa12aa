#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <optional>
#include <string>

#include "tests/contract/X11Windows.h"

namespace tilwin::x11 {

namespace {

using desktop::WindowKind;
using desktop::WindowState;

constexpr Point inWindow{500, 400};

}  // namespace

TEST_F(X11Windows, TheDesktopWithTheFocusIsNoWindowToBeMoved) {
  const auto window = open({.title = "text"});
  ASSERT_TRUE(session.desktop().activate(window.id()));
  EXPECT_EQ(focusedTitle(), "text");
  const auto wallpaper =
      open({.title = "wallpaper", .area = {0, 0, 1920, 1080}, .kind = WindowKind::desktop});
  ASSERT_TRUE(session.desktop().activate(wallpaper.id()));
  EXPECT_EQ(focusedTitle(), std::nullopt);
}

TEST_F(X11Windows, APanelOrTheDesktopUnderThePointerIsNoWindowToBeDragged) {
  const auto wallpaper =
      open({.title = "wallpaper", .area = {0, 0, 1920, 1080}, .kind = WindowKind::desktop});
  EXPECT_EQ(titleAt(inWindow), std::nullopt);
  const auto panel = open({.title = "panel", .area = {0, 0, 1920, 40}, .kind = WindowKind::dock});
  EXPECT_EQ(titleAt({500, 20}), std::nullopt);
  const auto window = open({.title = "text"});
  EXPECT_EQ(titleAt(inWindow), "text");
}

TEST_F(X11Windows, AWindowOfThisProgramIsNeitherMovedNorDraggedNorListed) {
  const auto own = session.window({.title = "own", .process = getpid()});
  ASSERT_TRUE(session.desktop().activate(own.id()));
  EXPECT_EQ(focusedTitle(), std::nullopt);
  EXPECT_EQ(titleAt(inWindow), std::nullopt);
  EXPECT_FALSE(listed("own"));
}

TEST_F(X11Windows, AWindowMaximisedInOneDirectionIsReleasedAndMoved) {
  const Rect target{300, 200, 500, 400};
  for (const auto state : {WindowState::maximizedVertically, WindowState::maximizedHorizontally}) {
    const auto window = open({.title = "text"});
    x->dispatch();  // it may have the number of the one that was closed
    ASSERT_TRUE(session.desktop().activate(window.id()));
    session.desktop().set(window.id(), state, true);
    ASSERT_TRUE(session.desktop().waitUntil([&] { return session.desktop().has(window.id(), state); }));
    ASSERT_TRUE(focusedTitle());
    ASSERT_TRUE(provider->setFrame(provider->focusedWindow()->id, target));
    EXPECT_TRUE(comesToStandAt(window, target));
    EXPECT_FALSE(session.desktop().has(window.id(), state));
  }
}

TEST_F(X11Windows, AWindowWithoutATypeIsListedUnlessItBelongsToAnother) {
  const auto plain = open({.title = "plain"});
  const auto dialog = open({.title = "dialog", .transientFor = plain.id()});
  removeProperty(plain, "_NET_WM_WINDOW_TYPE");
  removeProperty(dialog, "_NET_WM_WINDOW_TYPE");
  EXPECT_TRUE(listed("plain"));
  EXPECT_FALSE(listed("dialog"));
}

TEST_F(X11Windows, AWindowWithoutAnEwmhTitleHasItsOlderOne) {
  const auto window = open({.title = "older"});
  removeProperty(window, "_NET_WM_NAME");
  EXPECT_TRUE(listed("older"));
}

TEST_F(X11Windows, AManagerIsAskedForAFrameAsAPagerAsksInTheSightOfOtherClients) {
  desktop::XConnection other(session.server().display());
  const std::uint32_t substructure = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
  xcb_change_window_attributes(other.get(), other.root(), XCB_CW_EVENT_MASK, &substructure);
  const auto window = open({.title = "text", .undecorated = true});
  other.sync();
  ASSERT_TRUE(provider->setFrame(listed("text").value_or(WindowInfo()).id, {-30, 200, 500, 400}));
  (void)provider->focusedWindow();  // answered after the request has been sent on
  other.sync();
  constexpr std::uint32_t northWest = 1;
  constexpr std::uint32_t positionAndSize = 0xf00;
  constexpr std::uint32_t fromPager = 0x2000;
  EXPECT_EQ(messageTo(other, "_NET_MOVERESIZE_WINDOW"),
            (std::array<std::uint32_t, 5>{northWest | positionAndSize | fromPager,
                                          static_cast<std::uint32_t>(-30), 200, 500, 400}));
}

TEST_F(X11Windows, AWindowThatClosedUnnoticedIsNotMoved) {
  auto window = open({.title = "text"});
  const auto id = listed("text").value_or(WindowInfo()).id;
  window.destroy();
  ASSERT_TRUE(session.desktop().waitUntil([&] { return session.desktop().clients().empty(); }));
  EXPECT_FALSE(provider->setFrame(id, {300, 200, 500, 400}));
}

TEST_F(X11Windows, AWindowIsNoLongerHeldOnceTheNextDragLooksForItsOwn) {
  const auto window = open({.title = "text"});
  ASSERT_TRUE(provider->frame(listed("text").value_or(WindowInfo()).id));
  EXPECT_EQ(titleAt({1500, 900}), std::nullopt);
  EXPECT_EQ(held->letGo(), XCB_WINDOW_NONE);
}

TEST_F(X11Windows, AFrameAskedForAheadIsThatOfItsOwnWindow) {
  const auto first = open({.title = "first", .area = {100, 100, 400, 300}});
  const auto second = open({.title = "second", .area = {700, 500, 500, 200}});
  const auto firstID = listed("first").value_or(WindowInfo()).id;
  const auto secondID = listed("second").value_or(WindowInfo()).id;
  const auto frameOf = [&](const desktop::TestWindow& window) {
    return session.desktop().frame(window.id());
  };
  EXPECT_EQ(provider->frame(firstID), frameOf(first));
  held->askAhead();
  EXPECT_EQ(provider->frame(secondID), frameOf(second));
  held->askAhead();
  EXPECT_EQ(provider->frame(secondID), frameOf(second));
  EXPECT_EQ(provider->frame(firstID), frameOf(first));
}

}  // namespace tilwin::x11
