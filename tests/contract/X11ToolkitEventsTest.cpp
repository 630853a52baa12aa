#include "platform/x11/wire/ToolkitEvents.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <vector>

#include "platform/qt/QtMainQueue.h"
#include "tests/contract/MainLoop.h"
#include "tests/contract/TestLogs.h"
#include "tests/desktop/harness/Session.h"

namespace tilwin::x11 {

namespace {

using desktop::Milliseconds;
using desktop::XcbPtr;
using Names = std::vector<std::string>;

constexpr Milliseconds afterPause{150};

/// A toolkit with its own connection, which watches the root as toolkits do, and what it is given to handle.
class X11ToolkitEvents : public testing::Test {
protected:
  X11ToolkitEvents()
      : toolkit_(session_.server().display()),
        hostile_(session_.server().display()),
        window_(xcb_generate_id(toolkit_.get())) {
    setenv("DISPLAY", session_.server().display().c_str(), 1);
    x_.emplace(log_);
    queue_.watch(x_->fileDescriptor(), [this] { x_->dispatch(); });
    queue_.beforeEachSleep([this] { return x_->dispatchQueued(); });
    listenToRoot();
    xcb_create_window(toolkit_.get(), XCB_COPY_FROM_PARENT, window_, toolkit_.root(), 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
    events_.emplace(*x_, queue_, toolkit_.get());
    toolkit_.sync();
  }

  void listenToRoot() {
    const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(toolkit_.get(), toolkit_.root(), XCB_CW_EVENT_MASK, &mask);
  }

  void touchRoot(const std::string& property) {
    xcb_change_property(hostile_.get(), XCB_PROP_MODE_APPEND, hostile_.root(), hostile_.atom(property),
                        property == "_NET_WORKAREA" ? XCB_ATOM_CARDINAL : XCB_ATOM_ATOM, 32, 0, nullptr);
    hostile_.sync();
  }

  /// Sends an event to the toolkit's window that says what a real one of this type could.
  void forge(int type, xcb_atom_t atom = XCB_ATOM_NONE) {
    xcb_client_message_event_t event{};
    event.response_type = static_cast<std::uint8_t>(type);
    event.format = 32;
    event.window = hostile_.root();
    event.type = atom;
    xcb_send_event(hostile_.get(), 0, window_, XCB_EVENT_MASK_NO_EVENT,
                   reinterpret_cast<const char*>(&event));
    hostile_.sync();
  }

  void announceTray() {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = hostile_.root();
    event.type = hostile_.atom("MANAGER");
    event.data.data32[1] = hostile_.atom("_NET_SYSTEM_TRAY_S0");
    xcb_send_event(hostile_.get(), 0, hostile_.root(), XCB_EVENT_MASK_STRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&event));
    hostile_.sync();
  }

  /// What arrives for the toolkit.
  int arrived() {
    toolkit_.sync();
    int count = 0;
    while (const XcbPtr<xcb_generic_event_t> event{xcb_poll_for_event(toolkit_.get())}) {
      ++count;
      const std::uint8_t type = event->response_type & 0x7f;
      if (!events_->wants(*event)) continue;
      const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(*event);
      wanted_.push_back(type == XCB_PROPERTY_NOTIFY ? toolkit_.atomName(change.atom) : std::to_string(type));
    }
    return count;
  }

  desktop::Session session_;
  desktop::XConnection toolkit_;
  desktop::XConnection hostile_;
  desktop::WindowId window_;
  FailingLog log_;
  qt::QtMainQueue queue_;
  std::optional<X11Connection> x_;
  std::optional<ToolkitEvents> events_;
  Names wanted_;
};

}  // namespace

TEST_F(X11ToolkitEvents, OfTheRootsPropertiesItHearsOfTwoEachOnceHoweverOftenTheyChange) {
  for (int times = 0; times < 200; ++times) {
    for (const char* property : {"_NET_SUPPORTED", "_TILWIN_TEST", "_NET_WORKAREA"}) touchRoot(property);
  }
  runMainLoop(afterPause);
  EXPECT_EQ(arrived(), 2);
  std::ranges::sort(wanted_);
  EXPECT_EQ(wanted_, (Names{"_NET_SUPPORTED", "_NET_WORKAREA"}));
}

TEST_F(X11ToolkitEvents, AChangeAfterTheLastThatWasToldIsToldToo) {
  for (int times = 0; times < 2; ++times) {
    touchRoot("_NET_WORKAREA");
    runMainLoop(afterPause);
  }
  arrived();
  EXPECT_EQ(wanted_, (Names{"_NET_WORKAREA", "_NET_WORKAREA"}));
}

TEST_F(X11ToolkitEvents, ThatListensToTheRootAgainHearsOnlyTheNextChanges) {
  listenToRoot();
  toolkit_.sync();
  touchRoot("_NET_WORKAREA");
  runMainLoop(afterPause);
  arrived();
  touchRoot("_TILWIN_TEST");
  EXPECT_EQ(arrived(), 0);
}

TEST_F(X11ToolkitEvents, ANewTrayIsToldOnceHoweverOftenItIsAnnounced) {
  for (int times = 0; times < 50; ++times) announceTray();
  runMainLoop(afterPause);
  EXPECT_EQ(arrived(), 1);
  EXPECT_EQ(wanted_, Names{std::to_string(XCB_CLIENT_MESSAGE)});
}

TEST_F(X11ToolkitEvents, InputAndChangesThatAnotherClientMadeUpAreNotForIt) {
  for (const int type : {XCB_KEY_PRESS, XCB_BUTTON_PRESS, XCB_MOTION_NOTIFY, XCB_MAPPING_NOTIFY, XCB_EXPOSE,
                         XCB_DESTROY_NOTIFY}) {
    forge(type);
  }
  forge(XCB_PROPERTY_NOTIFY);
  EXPECT_EQ(arrived(), 7);
  EXPECT_EQ(wanted_, Names{});
}

TEST_F(X11ToolkitEvents, RequestsBetweenClientsAreForItButNotAFloodOfThem) {
  forge(XCB_CLIENT_MESSAGE);
  arrived();
  EXPECT_EQ(wanted_, Names{std::to_string(XCB_CLIENT_MESSAGE)});
  for (int times = 0; times < 1000; ++times) forge(XCB_CLIENT_MESSAGE);
  EXPECT_EQ(arrived(), 1000);
  EXPECT_LT(wanted_.size(), 2 * ToolkitEvents::mostSent + 2);
  runMainLoop(afterPause);
  wanted_.clear();
  forge(XCB_CLIENT_MESSAGE);
  arrived();
  EXPECT_EQ(wanted_.size(), 1U);
}

}  // namespace tilwin::x11
