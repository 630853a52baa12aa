#include "platform/x11/windows/HeldWindow.h"

#include <gtest/gtest.h>

#include <optional>

#include "tests/contract/TestLogs.h"
#include "tests/desktop/harness/Session.h"

namespace tilwin::x11 {

namespace {

/// A window on a real desktop whose frame may be requested ahead, and a place to move it to.
class X11HeldWindow : public testing::Test {
protected:
  X11HeldWindow() {
    setenv("DISPLAY", session_.server().display().c_str(), 1);
    x_.emplace(log_);
    held_.emplace(*x_);
    window_.emplace(session_.server().display(), desktop::TestWindowOptions{.area = before});
    handleEvents();
  }

  /// Handles every event sent so far.
  void handleEvents() {
    sync();
    x_->dispatchQueued();
  }

  /// The replies to every request so far are there when this returns. Handles no events.
  void sync() {
    const desktop::XcbPtr<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(x_->get(), xcb_get_input_focus(x_->get()), nullptr));
    ASSERT_TRUE(reply);
  }

  /// Requests the frame ahead, then moves the window, so that the reply is out of date.
  void moveAfterAskingAhead() {
    held_->askAhead();
    sync();
    auto& hand = session_.desktop();
    const auto old = actual();
    window_->moveTo({900, 500});
    ASSERT_TRUE(hand.waitUntil([&] { return actual() != old; }));
  }

  std::optional<Rect> actual() { return session_.desktop().frame(window_->id()); }

  /// The number of the request made by this call; each request counts one.
  unsigned sequence() { return xcb_no_operation(x_->get()).sequence; }

  static constexpr Rect before{400, 300, 500, 400};

  desktop::Session session_;
  FailingLog log_;
  std::optional<X11Connection> x_;
  std::optional<HeldWindow> held_;
  std::optional<desktop::TestWindow> window_;
};

}  // namespace

TEST_F(X11HeldWindow, NothingIsRequestedAheadBeforeAFrameWasReadOrAfterTheWindowWasLetGo) {
  const auto requestsAhead = [this] {
    const unsigned firstRequest = sequence();
    held_->askAhead();
    return sequence() - firstRequest - 1;
  };
  EXPECT_EQ(requestsAhead(), 0);
  ASSERT_TRUE(held_->frame(window_->id()));
  EXPECT_GT(requestsAhead(), 0);
  held_->letGo();
  EXPECT_EQ(requestsAhead(), 0);
}

TEST_F(X11HeldWindow, AReplyRequestedAheadIsUsedOnce) {
  ASSERT_EQ(held_->frame(window_->id()), actual());
  const auto old = actual();
  moveAfterAskingAhead();
  EXPECT_EQ(held_->frame(window_->id()), old);
  EXPECT_EQ(held_->frame(window_->id()), actual());
}

TEST_F(X11HeldWindow, AReplyRequestedBeforeAnEventIsNotUsedAfterIt) {
  ASSERT_TRUE(held_->frame(window_->id()));
  moveAfterAskingAhead();
  auto& other = session_.desktop().connection();
  xcb_change_property(other.get(), XCB_PROP_MODE_REPLACE, other.root(), other.atom("_TILWIN_TEST"),
                      XCB_ATOM_CARDINAL, 32, 0, nullptr);
  other.sync();
  handleEvents();
  EXPECT_EQ(held_->frame(window_->id()), actual());
}

TEST_F(X11HeldWindow, AReplyRequestedBeforeTheWindowWasLetGoIsNotUsedAfterThat) {
  ASSERT_TRUE(held_->frame(window_->id()));
  moveAfterAskingAhead();
  held_->letGo();
  EXPECT_EQ(held_->frame(window_->id()), actual());
}

TEST_F(X11HeldWindow, TheWindowWhoseFrameWasReadLastIsLetGoOnce) {
  EXPECT_EQ(held_->letGo(), XCB_WINDOW_NONE);
  const auto other = session_.window();
  ASSERT_TRUE(held_->frame(other.id()));
  ASSERT_TRUE(held_->frame(window_->id()));
  held_->askAhead();
  EXPECT_EQ(held_->letGo(), window_->id());
  EXPECT_EQ(held_->letGo(), XCB_WINDOW_NONE);
}

TEST_F(X11HeldWindow, AWindowThatClosedHasNoFrame) {
  const auto id = window_->id();
  ASSERT_TRUE(held_->frame(id));
  window_->destroy();
  ASSERT_TRUE(session_.desktop().waitUntil([&] { return actual() == std::nullopt; }));
  held_->askAhead();
  EXPECT_EQ(held_->frame(id), std::nullopt);
}

}  // namespace tilwin::x11
