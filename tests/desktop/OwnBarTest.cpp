#include <gtest/gtest.h>

#include <memory>
#include <span>
#include <vector>

#include "tests/desktop/DesktopTest.h"

namespace tilwin::desktop {

namespace {

/// In points: no bar is higher.
constexpr double highest = 100;
/// How far the area that is left free may begin from a bar's edge: its border.
constexpr double border = 2;

constexpr Rect shorterFrame{0, 0, 1440, 900};
constexpr Rect tallerFrame{1440, 0, 1920, 1080};
const PluggedDisplay shorter{.output = "DUMMY0", .mode = {1440, 900}, .position = {0, 0}, .primary = true};
const PluggedDisplay taller{.output = "DUMMY1", .mode = {1920, 1080}, .position = {1440, 0}};

/// A desktop whose window manager shows a bar along the bottom of the screen.
class OwnBars : public testing::Test {
protected:
  void start(const std::vector<PluggedDisplay>& displays, const Rect& first) {
    session_ = std::make_unique<Session>(
        SessionOptions{.manager = arguments().manager, .setup = {.ownBar = true}, .displays = displays});
    ASSERT_TRUE(desktop().waitUntil([&] { return barIn(first).has_value(); })) << "no bar comes up";
    tilwin_ = std::make_unique<TilwinProcess>(*session_, arguments().tilwin);
    window_ = std::make_unique<TestWindow>(session_->server().display());
    ASSERT_TRUE(desktop().activate(window_->id()));
  }

  Desktop& desktop() { return session_->desktop(); }
  void press(const std::string& chord) { session_->input().press(chord); }

  /// The areas of the windows that are shown on the root, frames included.
  std::vector<Rect> shown() {
    auto& connection = desktop().connection();
    const XcbPtr<xcb_query_tree_reply_t> tree(
        xcb_query_tree_reply(connection.get(), xcb_query_tree(connection.get(), connection.root()), nullptr));
    if (!tree) return {};
    std::vector<Rect> areas;
    for (const auto window : std::span(xcb_query_tree_children(tree.get()), tree->children_len)) {
      const XcbPtr<xcb_get_window_attributes_reply_t> attributes(xcb_get_window_attributes_reply(
          connection.get(), xcb_get_window_attributes(connection.get(), window), nullptr));
      const auto area = desktop().topLevelArea(window);
      if (attributes && area && attributes->map_state == XCB_MAP_STATE_VIEWABLE) areas.push_back(*area);
    }
    return areas;
  }

  /// The bar along the bottom of this display.
  std::optional<Rect> barIn(const Rect& display) {
    for (const Rect& area : shown()) {
      const bool isInside = area.x >= display.x && area.maxX() <= display.maxX();
      const bool isAtBottom =
          area.maxY() >= display.maxY() - border && area.maxY() <= display.maxY() + border;
      if (isInside && isAtBottom && area.width > display.width / 2 && area.height < highest) return area;
    }
    return std::nullopt;
  }

  /// The left half of what the bar, if there is one, leaves of this display.
  Rect leftHalfOf(const Rect& display) {
    const auto bar = barIn(display);
    return {display.x, display.y, display.width / 2, (bar ? bar->y : display.maxY()) - display.y};
  }

  testing::AssertionResult fills(const Rect& frame) {
    const auto stands = [&] { return desktop().waitForFrame(window_->id(), frame, border); };
    const auto seen = stands() ? desktop().topLevelArea(window_->id()) : std::nullopt;
    if (seen && seen->y >= frame.y && seen->maxY() <= frame.maxY()) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "expected " << text(frame) << ", saw "
                                       << text(desktop().frame(window_->id()).value_or(Rect())) << "\n"
                                       << tilwin_->log();
  }

private:
  std::unique_ptr<Session> session_;
  std::unique_ptr<TilwinProcess> tilwin_;
  std::unique_ptr<TestWindow> window_;
};

}  // namespace

TEST_F(OwnBars, AreLeftFree) {
  ASSERT_NO_FATAL_FAILURE(start({}, wholeDisplay));
  press(leftHalfKeys);
  EXPECT_TRUE(fills(leftHalfOf(wholeDisplay)));
}

TEST_F(OwnBars, OnOneOfTwoDisplaysLeaveTheOtherWhole) {
  ASSERT_NO_FATAL_FAILURE(start({shorter, taller}, shorterFrame));
  press(leftHalfKeys);
  EXPECT_TRUE(fills(leftHalfOf(shorterFrame)));
  press(nextDisplayKeys);
  EXPECT_TRUE(fills(leftHalfOf(tallerFrame)));
}

}  // namespace tilwin::desktop
