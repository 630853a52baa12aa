#include "tests/desktop/floods/Floods.h"

#include <xcb/xtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>

namespace tilwin::desktop {

namespace {

using Act = HostileClient::Act;

/// Appends nothing to a property: it keeps its value, and everybody who watches it is told of a change.
void touch(XConnection& client, WindowId window, xcb_atom_t property, xcb_atom_t type) {
  xcb_change_property(client.get(), XCB_PROP_MODE_APPEND, window, property, type, 32, 0, nullptr);
}

Act touchingRoot(XConnection& client, const char* property, xcb_atom_t type) {
  return [atom = client.atom(property), type](XConnection& hostile, unsigned) {
    touch(hostile, hostile.root(), atom, type);
  };
}

/// Sends an event to everybody who watches the root.
template <typename Event>
void forge(XConnection& client, const Event& event) {
  std::array<char, 32> bytes{};
  static_assert(sizeof event <= bytes.size());
  const auto* first = reinterpret_cast<const char*>(&event);
  std::copy(first, first + sizeof event, bytes.begin());
  xcb_send_event(client.get(), 0, client.root(),
                 XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY, bytes.data());
}

Act forgingMappings(XConnection&, const FloodTargets&) {
  return [](XConnection& hostile, unsigned round) {
    xcb_mapping_notify_event_t event{};
    event.response_type = XCB_MAPPING_NOTIFY;
    event.request = static_cast<std::uint8_t>(round % 3);  // modifiers, keyboard, pointer
    event.first_keycode = 8;
    event.count = 248;
    forge(hostile, event);
  };
}

/// The press of the right arrow, which moves the focused window to the right half.
Act forgingPresses(XConnection&, const FloodTargets&) {
  return [](XConnection& hostile, unsigned round) {
    constexpr xcb_keycode_t right = 114;
    xcb_key_press_event_t event{};
    event.response_type = round % 2 == 0 ? XCB_KEY_PRESS : XCB_KEY_RELEASE;
    event.detail = right;
    event.time = round;
    event.root = event.event = hostile.root();
    event.state = XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1;
    event.same_screen = 1;
    forge(hostile, event);
  };
}

Act forgingMoves(XConnection&, const FloodTargets& targets) {
  return [window = targets.snapped](XConnection& hostile, unsigned round) {
    xcb_configure_notify_event_t event{};
    event.response_type = XCB_CONFIGURE_NOTIFY;
    event.event = event.window = round % 2 == 0 ? window : hostile.root();
    event.width = event.height = 100;
    forge(hostile, event);
  };
}

/// What a new tray says of itself, which makes toolkits ask who it is.
Act announcingTrays(XConnection& client, const FloodTargets&) {
  return [manager = client.atom("MANAGER"), tray = client.atom("_NET_SYSTEM_TRAY_S0")](XConnection& hostile,
                                                                                       unsigned) {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = hostile.root();
    event.type = manager;
    event.data.data32[1] = tray;
    forge(hostile, event);
  };
}

Act changingShadow(XConnection& client, const FloodTargets& targets) {
  return [window = targets.focused, atom = client.atom("_GTK_FRAME_EXTENTS")](XConnection& hostile,
                                                                              unsigned round) {
    const std::uint32_t width = round % 2 == 0 ? 0 : 20;
    const std::array<std::uint32_t, 4> extents{width, width, width, width};
    xcb_change_property(hostile.get(), XCB_PROP_MODE_REPLACE, window, atom, XCB_ATOM_CARDINAL, 32,
                        static_cast<std::uint32_t>(extents.size()), extents.data());
  };
}

Act changingStrut(XConnection& client, const FloodTargets& targets) {
  return [window = targets.panel, atom = client.atom("_NET_WM_STRUT")](XConnection& hostile, unsigned) {
    touch(hostile, window, atom, XCB_ATOM_CARDINAL);
  };
}

Act changingTitle(XConnection&, const FloodTargets& targets) {
  return [window = targets.focused](XConnection& hostile, unsigned round) {
    const std::string title = std::to_string(round);
    xcb_change_property(hostile.get(), XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8,
                        static_cast<std::uint32_t>(title.size()), title.data());
  };
}

/// Each name is a new one, and as long as a property can be in one request.
Act changingProgram(XConnection&, const FloodTargets& targets) {
  return [window = targets.focused](XConnection& hostile, unsigned round) {
    constexpr std::size_t longest = 60000;
    constexpr unsigned often = 50;
    if (round % often != 0) return touch(hostile, window, XCB_ATOM_WM_COMMAND, XCB_ATOM_STRING);
    const std::string name = std::string("x") + '\0' + std::to_string(round) + std::string(longest, 'x');
    xcb_change_property(hostile.get(), XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 8,
                        static_cast<std::uint32_t>(name.size()), name.data());
  };
}

Act movingItself(XConnection&, const FloodTargets& targets) {
  return [window = targets.snapped](XConnection& hostile, unsigned round) {
    const std::uint32_t x = 300 + round % 100;
    xcb_configure_window(hostile.get(), window, XCB_CONFIG_WINDOW_X, &x);
  };
}

/// A dock, so that it does not take the focus.
WindowId openDock(XConnection& hostile) {
  const WindowId window = xcb_generate_id(hostile.get());
  xcb_create_window(hostile.get(), XCB_COPY_FROM_PARENT, window, hostile.root(), 0, 1070, 10, 10, 0,
                    XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
  const auto dock = hostile.atom("_NET_WM_WINDOW_TYPE_DOCK");
  xcb_change_property(hostile.get(), XCB_PROP_MODE_REPLACE, window, hostile.atom("_NET_WM_WINDOW_TYPE"),
                      XCB_ATOM_ATOM, 32, 1, &dock);
  xcb_map_window(hostile.get(), window);
  return window;
}

/// As fast as the window manager takes them.
Act comingAndGoing(XConnection&, const FloodTargets&) {
  return [](XConnection& hostile, unsigned) {
    constexpr int patience = 2000;
    const WindowId window = openDock(hostile);
    for (int asked = 0; asked < patience; ++asked) {
      const auto listed = hostile.numbers(hostile.root(), "_NET_CLIENT_LIST");
      if (std::find(listed.begin(), listed.end(), window) != listed.end()) break;
    }
    xcb_destroy_window(hostile.get(), window);
  };
}

/// The order of the buttons stays the same, but everybody is told that it changed.
Act settingButtons(XConnection&, const FloodTargets&) {
  return [](XConnection& hostile, unsigned) {
    const XcbPtr<xcb_get_pointer_mapping_reply_t> now(
        xcb_get_pointer_mapping_reply(hostile.get(), xcb_get_pointer_mapping(hostile.get()), nullptr));
    if (!now) return;
    const auto cookie =
        xcb_set_pointer_mapping(hostile.get(), now->map_len, xcb_get_pointer_mapping_map(now.get()));
    const XcbPtr<xcb_set_pointer_mapping_reply_t> done(
        xcb_set_pointer_mapping_reply(hostile.get(), cookie, nullptr));
  };
}

void fake(XConnection& hostile, std::uint8_t type, std::uint8_t detail, std::int16_t x = 0,
          std::int16_t y = 0) {
  xcb_test_fake_input(hostile.get(), type, detail, XCB_CURRENT_TIME, hostile.root(), x, y, 0);
}

Act movingPointer(XConnection&, const FloodTargets&) {
  return [](XConnection& hostile, unsigned round) {
    fake(hostile, XCB_MOTION_NOTIFY, 0, static_cast<std::int16_t>(900 + round % 100), 20);
  };
}

Act turningWheel(XConnection&, const FloodTargets&) {
  return [](XConnection& hostile, unsigned round) {
    constexpr std::uint8_t wheel = 4;
    fake(hostile, round % 2 == 0 ? XCB_BUTTON_PRESS : XCB_BUTTON_RELEASE, wheel);
  };
}

constexpr std::array floods{
    Flood{"TheActiveWindowIsRewritten",
          [](XConnection& client, const FloodTargets&) {
            return touchingRoot(client, "_NET_ACTIVE_WINDOW", XCB_ATOM_WINDOW);
          }},
    Flood{"TheListOfWindowsIsRewritten",
          [](XConnection& client, const FloodTargets&) {
            return touchingRoot(client, "_NET_CLIENT_LIST", XCB_ATOM_WINDOW);
          }},
    Flood{"TheWorkAreaIsRewritten",
          [](XConnection& client, const FloodTargets&) {
            return touchingRoot(client, "_NET_WORKAREA", XCB_ATOM_CARDINAL);
          }},
    Flood{"WhatTheManagerSupportsIsRewritten",
          [](XConnection& client, const FloodTargets&) {
            return touchingRoot(client, "_NET_SUPPORTED", XCB_ATOM_ATOM);
          }},
    Flood{"TheManagerAnnouncesItself",
          [](XConnection& client, const FloodTargets&) {
            return touchingRoot(client, "_NET_SUPPORTING_WM_CHECK", XCB_ATOM_WINDOW);
          }},
    Flood{"ChangesOfTheKeyboardAreForged", forgingMappings, true},
    Flood{"PressesAreForged", forgingPresses},
    Flood{"MovesOfWindowsAreForged", forgingMoves, true},
    Flood{"TraysAreAnnounced", announcingTrays},
    Flood{"TheFocusedWindowChangesItsShadow", changingShadow, true},
    Flood{"TheFocusedWindowChangesItsTitle", changingTitle, true},
    Flood{"TheFocusedWindowChangesItsProgram", changingProgram, true},
    Flood{"APanelChangesItsStrut", changingStrut, true},
    Flood{"AWindowMovesItself", movingItself, true},
    Flood{"WindowsComeAndGo", comingAndGoing, true},
    Flood{"TheButtonsAreSet", settingButtons, true},
    Flood{"ThePointerMoves", movingPointer, true},
    Flood{"TheWheelTurns", turningWheel, true},
};

}  // namespace

std::span<const Flood> allFloods() { return floods; }

}  // namespace tilwin::desktop
