#include "platform/x11/wire/X11Connection.h"

#include <gtest/gtest.h>
#include <xcb/randr.h>
#include <xcb/xinput.h>

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

  /// Every event so far is in memory when this returns.
  void sync() {
    const desktop::XcbPtr<xcb_get_input_focus_reply_t> last(
        xcb_get_input_focus_reply(x->get(), xcb_get_input_focus(x->get()), nullptr));
  }

  /// Handles what the server answered to every request so far.
  void arrive() {
    sync();
    x->dispatchQueued();
  }

  void touchRoot() {
    xcb_change_property(x->get(), XCB_PROP_MODE_APPEND, x->root(), XCB_ATOM_CUT_BUFFER0, XCB_ATOM_STRING, 8,
                        0, nullptr);
  }

  void forge(std::uint8_t type) {
    auto& other = session.desktop().connection();
    xcb_key_press_event_t event{};
    event.response_type = type;
    event.root = event.event = other.root();
    xcb_send_event(other.get(), 0, other.root(), XCB_EVENT_MASK_PROPERTY_CHANGE,
                   reinterpret_cast<const char*>(&event));
    other.sync();
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

TEST_F(X11ConnectionToServer, WhatFollowsFromABurstOfEventsIsDoneOnceAfterAllOfThem) {
  arrive();
  int events = 0;
  std::vector<int> done;
  x->onEvent(XCB_PROPERTY_NOTIFY, [&](const xcb_generic_event_t&) { ++events; });
  x->afterEvents([&] { done.push_back(events); });
  for (int times = 0; times < 50; ++times) touchRoot();
  arrive();
  EXPECT_EQ(done, std::vector{50});
}

TEST_F(X11ConnectionToServer, EventsThatComeWhileTheServerIsAskedAreLeftForTheNextTurnAndAnnounced) {
  arrive();
  int events = 0;
  x->onEvent(XCB_PROPERTY_NOTIFY, [&](const xcb_generic_event_t&) { ++events; });
  x->afterEvents([&] {
    if (events > 3) return;
    touchRoot();
    sync();
  });
  touchRoot();
  sync();
  EXPECT_TRUE(x->dispatchQueued());
  EXPECT_EQ(events, 1);
  EXPECT_TRUE(x->dispatchQueued());
  EXPECT_EQ(events, 2);
  while (x->dispatchQueued()) {
  }
  EXPECT_EQ(events, 4);
}

TEST_F(X11ConnectionToServer, EventsThatAnotherClientMadeUpAreDroppedApartFromTheKindThatManagersSend) {
  arrive();
  const auto before = x->generation();
  std::vector<int> types;
  for (const int type : {XCB_KEY_PRESS, XCB_KEY_RELEASE, XCB_MAPPING_NOTIFY, XCB_PROPERTY_NOTIFY,
                         XCB_DESTROY_NOTIFY, XCB_CONFIGURE_NOTIFY}) {
    x->onEvent(static_cast<std::uint8_t>(type),
               [&types, type](const xcb_generic_event_t&) { types.push_back(type); });
    forge(static_cast<std::uint8_t>(type));
  }
  arrive();
  EXPECT_EQ(types, std::vector<int>{XCB_CONFIGURE_NOTIFY});
  EXPECT_EQ(x->generation(), before + 1);
}

TEST_F(X11ConnectionToServer, WhatOnePartSelectsTakesNothingFromAnother) {
  const int somebody = 0;
  int events = 0;
  x->onEvent(XCB_PROPERTY_NOTIFY, [&](const xcb_generic_event_t&) { ++events; });
  x->masks().select(&somebody, x->root(), XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY);
  touchRoot();
  arrive();
  EXPECT_EQ(events, 1);
  x->masks().select(&somebody, x->root(), XCB_EVENT_MASK_NO_EVENT);
  touchRoot();
  arrive();
  EXPECT_EQ(events, 2);
}

TEST_F(X11ConnectionToServer, WhatWasSelectedOfAWindowIsForgottenWhenItIsDestroyed) {
  const int somebody = 0;
  const auto before = x->masks().size();
  {
    const auto window = session.window();
    x->masks().select(&somebody, window.id(), XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    arrive();
    EXPECT_EQ(x->masks().size(), before + 1);
  }
  EXPECT_TRUE(session.desktop().waitUntil([&] {
    arrive();
    return x->masks().size() == before;
  }));
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

TEST_F(X11ConnectionToServer, TheLossOfTheServerIsToldBeforeAnythingIsReadIfAskedFor) {
  int lost = 0;
  x->onLost([&] { ++lost; });
  x->tellIfLost();
  EXPECT_EQ(lost, 0);
  session.server().process().end();
  for (int times = 0; times < 3; ++times) x->tellIfLost();
  EXPECT_EQ(lost, 1);
}

TEST_F(X11ConnectionToServer, WithoutItsServerAnExtensionHasNoEvents) {
  EXPECT_NE(x->firstEvent(xcb_randr_id), 0);
  EXPECT_NE(x->majorOpcode(xcb_input_id), 0);
  session.server().process().end();
  arrive();
  EXPECT_EQ(x->firstEvent(xcb_randr_id), 0);
  EXPECT_EQ(x->majorOpcode(xcb_input_id), 0);
}

}  // namespace tilwin::x11
