#include "platform/x11/wire/X11Connection.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "tests/contract/TestLogs.h"
#include "tests/desktop/harness/Session.h"

namespace tilwin::x11 {

namespace {

using Lines = std::vector<std::string>;

/// A connection to a real server.
class X11ConnectionToServer : public testing::Test {
protected:
  X11ConnectionToServer() {
    setenv("DISPLAY", session.server().display().c_str(), 1);
    x.emplace(log);
  }

  /// Handles what the server answered to every request so far.
  void arrive() {
    const desktop::XcbPtr<xcb_get_input_focus_reply_t> last(
        xcb_get_input_focus_reply(x->get(), xcb_get_input_focus(x->get()), nullptr));
    x->dispatchQueued();
  }

  desktop::Session session;
  KeptLog log;
  std::optional<X11Connection> x;
};

}  // namespace

TEST_F(X11ConnectionToServer, AnErrorIsLoggedOnceForItsKind) {
  constexpr xcb_gcontext_t noContext = 0;
  for (int times = 0; times < 3; ++times) xcb_free_gc(x->get(), noContext);
  arrive();
  EXPECT_EQ(log.lines, Lines{"Tilwin: X error 13 of request 60.0"});
  xcb_copy_gc(x->get(), noContext, noContext, 0);
  arrive();
  EXPECT_EQ(log.lines, (Lines{"Tilwin: X error 13 of request 60.0", "Tilwin: X error 13 of request 57.0"}));
}

TEST_F(X11ConnectionToServer, AnErrorAboutAWindowThatHasGoneIsNotLogged) {
  const auto gone = [&] { return session.window().id(); }();
  ASSERT_TRUE(session.desktop().waitUntil([&] { return !session.desktop().frame(gone); }));
  xcb_map_window(x->get(), gone);
  xcb_clear_area(x->get(), 0, gone, 0, 0, 0, 0);
  arrive();
  EXPECT_EQ(log.lines, Lines{});
}

TEST_F(X11ConnectionToServer, WhateverIsDeliveredMakesWhatWasReadBeforeStale) {
  arrive();
  const auto before = x->generation();
  xcb_change_property(x->get(), XCB_PROP_MODE_APPEND, x->root(), XCB_ATOM_CUT_BUFFER0, XCB_ATOM_STRING, 8, 1,
                      "x");
  arrive();
  EXPECT_GT(x->generation(), before);
}

TEST_F(X11ConnectionToServer, TheLossOfTheServerIsToldOnce) {
  int lost = 0;
  x->onLost([&] { ++lost; });
  arrive();
  EXPECT_EQ(lost, 0);
  session.server().process().end();
  for (int times = 0; times < 3; ++times) {
    xcb_get_input_focus(x->get());
    x->flush();
    x->dispatch();
  }
  EXPECT_EQ(lost, 1);
}

}  // namespace tilwin::x11
