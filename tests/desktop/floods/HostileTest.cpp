#include <gtest/gtest.h>

#include <array>
#include <thread>

#include "tests/desktop/DesktopTest.h"
#include "tests/desktop/floods/HostileClient.h"

namespace tilwin::desktop {

namespace {

constexpr Milliseconds aMoment{300};
/// Longer than Tilwin follows a window that it has moved.
constexpr Milliseconds longAfterAPress{1300};

/// What another client can do once, or gently.
class HostileClients : public DesktopTest {
protected:
  static void pass(Milliseconds time) {
    desktop().waitUntil([] { return false; }, time);
  }

  static void makeRootActive() {
    auto& client = desktop().connection();
    const WindowId root = client.root();
    xcb_change_property(client.get(), XCB_PROP_MODE_REPLACE, root, client.atom("_NET_ACTIVE_WINDOW"),
                        XCB_ATOM_WINDOW, 32, 1, &root);
    client.sync();
  }

  static void forgePressOfLeftHalf() {
    auto& client = desktop().connection();
    xcb_key_press_event_t event{};
    event.response_type = XCB_KEY_PRESS;
    event.detail = session().input().keyboard().named("Left");
    event.root = event.event = client.root();
    event.state = XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1;
    event.same_screen = 1;
    xcb_send_event(client.get(), 0, client.root(),
                   XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&event));
    client.sync();
  }
};

HostileClient::Act flickeringShadow(WindowId window, xcb_atom_t property) {
  return [=](XConnection& client, unsigned round) {
    const std::uint32_t width = round % 2 == 0 ? 0 : 20;
    const std::array<std::uint32_t, 4> extents{width, width, width, width};
    xcb_change_property(client.get(), XCB_PROP_MODE_REPLACE, window, property, XCB_ATOM_CARDINAL, 32,
                        static_cast<std::uint32_t>(extents.size()), extents.data());
    client.sync();
    std::this_thread::sleep_for(Milliseconds{33});
  };
}

}  // namespace

TEST_F(HostileClients, CannotPressAShortcut) {
  const TestWindow window = session().window();
  focusAtStart(window.id());
  forgePressOfLeftHalf();
  pass(aMoment);
  EXPECT_EQ(desktop().frame(window.id()), startFrame);
  EXPECT_TRUE(serves());
}

TEST_F(HostileClients, ThatMakeTheRootActiveTakeNoWindowAndNoPanelOutOfSight) {
  const TestWindow window = session().window();
  focus(window.id());
  makeRootActive();
  press(leftHalfKeys);
  press("Control+Alt+Right");
  pass(longAfterAPress);
  // A change of the root after that time is the last that its watcher hears of, if that takes it for a
  // window.
  const TestWindow other = session().window();
  const TestWindow panel = session().window({.title = "Panel",
                                             .area = {0, 0, 1920, 40},
                                             .kind = WindowKind::dock,
                                             .strut = {.top = 40},
                                             .strutSpans = {0, 0, 0, 0, 0, 1919, 0, 0}});
  focus(window.id());
  pass(aMoment);
  press(leftHalfKeys);
  EXPECT_TRUE(stands(window.id(), {0, 40, 960, 1040}));
}

TEST_F(HostileClients, WhoseShadowNeverRestsCanBeDraggedAfterAPress) {
  const TestWindow window = session().window({.undecorated = true});
  focus(window.id());
  const HostileClient hostile(
      session().server().display(),
      flickeringShadow(window.id(), desktop().connection().atom("_GTK_FRAME_EXTENTS")));
  press(leftHalfKeys);
  pass(longAfterAPress);
  const char* modifier = session().manager().traits().moveModifier;
  session().input().keyDown(modifier);
  session().input().takeHold({400, 500});
  session().input().comeToRest({900, 600});
  pass(aMoment);
  const double x = desktop().clientArea(window.id()).value_or(Rect()).x;
  session().input().buttonUp();
  session().input().keyUp(modifier);
  EXPECT_NEAR(x, 500, 45);
  pass(aMoment);
  EXPECT_NEAR(desktop().clientArea(window.id()).value_or(Rect()).x, 500, 45);
}

}  // namespace tilwin::desktop
