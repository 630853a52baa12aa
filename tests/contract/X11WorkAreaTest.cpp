#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/contract/ReadDisplays.h"
#include "tests/contract/X11Windows.h"

namespace tilwin::x11 {

namespace {

constexpr Rect wholeScreen{0, 0, 1920, 1080};
constexpr Rect aboveTheBar{0, 0, 1920, 1050};

/// A panel that no window manager manages.
const desktop::TestWindowOptions unlistedPanel{.title = "Panel",
                                               .area = {0, 1050, 1920, 30},
                                               .strut = {.bottom = 30},
                                               .strutSpans = {0, 0, 0, 0, 0, 0, 0, 1919},
                                               .overrideRedirect = true};

/// A desktop on which the test tells what is free, in place of the window manager.
class X11WorkArea : public testing::Test {
protected:
  void start(const std::vector<desktop::PluggedDisplay>& displays = {}) {
    session_.emplace(desktop::SessionOptions{.displays = displays});
    read_.emplace(*session_);
  }

  desktop::XConnection& manager() { return session_->desktop().connection(); }

  void tell(const std::string& property, const std::vector<std::uint32_t>& numbers) {
    xcb_change_property(manager().get(), XCB_PROP_MODE_REPLACE, manager().root(), manager().atom(property),
                        XCB_ATOM_CARDINAL, 32, static_cast<std::uint32_t>(numbers.size()), numbers.data());
    manager().sync();
  }

  Rect visible(std::size_t display = 0) { return read_->current().at(display).visibleFrame; }

  std::optional<desktop::Session> session_;
  std::optional<ReadDisplays> read_;
};

const desktop::PluggedDisplay laptop{
    .output = "DUMMY0", .mode = {1440, 900}, .position = {0, 0}, .primary = true};
const desktop::PluggedDisplay monitor{.output = "DUMMY1", .mode = {1920, 1080}, .position = {1440, 0}};

}  // namespace

TEST_F(X11WorkArea, WhatTheManagerKeepsForItselfIsNotFree) {
  start();
  EXPECT_EQ(visible(), wholeScreen);
  tell("_NET_WORKAREA", {0, 0, 1920, 1050, 0, 0, 1920, 1050});
  EXPECT_EQ(visible(), aboveTheBar);
}

TEST_F(X11WorkArea, TheWorkspaceInViewCounts) {
  start();
  tell("_NET_WORKAREA", {0, 0, 1920, 1050, 0, 0, 1920, 1080});
  tell("_NET_CURRENT_DESKTOP", {1});
  EXPECT_EQ(visible(), wholeScreen);
  tell("_NET_CURRENT_DESKTOP", {0});
  EXPECT_EQ(visible(), aboveTheBar);
}

TEST_F(X11WorkArea, OneThatAnEarlierManagerLeftBehindIsNotBelieved) {
  start();
  session_->manager().stop();
  tell("_NET_SUPPORTED", {});
  tell("_NET_WORKAREA", {0, 0, 1920, 1050});
  EXPECT_EQ(visible(), wholeScreen);
  tell("_NET_SUPPORTED", {manager().atom("_NET_WORKAREA")});
  EXPECT_EQ(visible(), aboveTheBar);
}

TEST_F(X11WorkArea, ABarOnTheShorterOfTwoDisplaysLeavesTheOtherWhole) {
  start({laptop, monitor});
  const auto bar = session_->window({.title = "Bar", .area = {0, 860, 1440, 40}, .overrideRedirect = true});
  tell("_NET_WORKAREA", {0, 0, 3360, 860});
  EXPECT_EQ(visible(0), (Rect{0, 0, 1440, 860}));
  EXPECT_EQ(visible(1), (Rect{1440, 0, 1920, 1080}));
}

TEST_F(X11WorkArea, APanelThatIsNotListedTakesRoomWhileItIsShown) {
  start();
  auto panel = session_->window(unlistedPanel);
  read_.emplace(*session_);
  EXPECT_EQ(visible(), aboveTheBar);
  panel.unmap();
  EXPECT_TRUE(session_->desktop().waitUntil([&] { return visible() == wholeScreen; }));
}

TEST_F(X11WorkArea, APanelThatItsManagerHasPutIntoAWindowOfItsOwnTakesRoom) {
  start();
  const auto frame = session_->window({.area = {0, 1050, 1920, 30}, .overrideRedirect = true});
  {
    const auto panel = session_->window(unlistedPanel);
    xcb_reparent_window(manager().get(), panel.id(), frame.id(), 0, 0);
    manager().sync();
    read_.emplace(*session_);
    EXPECT_EQ(visible(), aboveTheBar);
  }
  EXPECT_TRUE(session_->desktop().waitUntil([&] { return visible() == wholeScreen; }));
}

TEST_F(X11Windows, APanelThatComesUnlistedAndWithoutAnEventTakesRoomFromTheNextPressOn) {
  const auto window = open({.title = "text"});
  ASSERT_TRUE(session.desktop().activate(window.id()));
  ASSERT_EQ(focusedTitle(), "text");
  ASSERT_EQ(provider->displays().front().visibleFrame, wholeScreen);
  const auto panel = session.window(unlistedPanel);
  ASSERT_EQ(focusedTitle(), "text");
  EXPECT_EQ(provider->displays().front().visibleFrame, aboveTheBar);
}

}  // namespace tilwin::x11
