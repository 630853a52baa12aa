#include "platform/x11/input/X11Keyboard.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/settings/KeyNames.h"
#include "tests/contract/TestLogs.h"
#include "tests/desktop/harness/Session.h"

namespace tilwin::x11 {

namespace {

/// Keysyms of the keys that no character is printed on (X11/keysymdef.h), by the names people read.
const std::map<std::string_view, xcb_keysym_t> keysymOfName{
    {"↩", 0xff0d},        {"⇥", 0xff09},         {"Space", 0x20},      {"⌫", 0xff08},
    {"⎋", 0xff1b},        {"⌦", 0xffff},         {"Home", 0xff50},     {"End", 0xff57},
    {"Page Up", 0xff55},  {"Page Down", 0xff56}, {"←", 0xff51},        {"↑", 0xff52},
    {"→", 0xff53},        {"↓", 0xff54},         {"F1", 0xffbe},       {"F2", 0xffbf},
    {"F3", 0xffc0},       {"F4", 0xffc1},        {"F5", 0xffc2},       {"F6", 0xffc3},
    {"F7", 0xffc4},       {"F8", 0xffc5},        {"F9", 0xffc6},       {"F10", 0xffc7},
    {"F11", 0xffc8},      {"F12", 0xffc9},       {"Keypad .", 0xffae}, {"Keypad *", 0xffaa},
    {"Keypad +", 0xffab}, {"Keypad /", 0xffaf},  {"Keypad ↩", 0xff8d}, {"Keypad -", 0xffad},
    {"Keypad =", 0xffbd}, {"Keypad 0", 0xffb0},  {"Keypad 1", 0xffb1}, {"Keypad 2", 0xffb2},
    {"Keypad 3", 0xffb3}, {"Keypad 4", 0xffb4},  {"Keypad 5", 0xffb5}, {"Keypad 6", 0xffb6},
    {"Keypad 7", 0xffb7}, {"Keypad 8", 0xffb8},  {"Keypad 9", 0xffb9}};

/// Letters stand in the keymap as they are typed without Shift.
xcb_keysym_t keysymOf(std::string_view name) {
  const auto found = keysymOfName.find(name);
  if (found != keysymOfName.end()) return found->second;
  const char printed = name.front();
  return static_cast<xcb_keysym_t>(printed >= 'A' && printed <= 'Z' ? printed - 'A' + 'a' : printed);
}

/// An American keyboard on a real server, and what is read of it.
class X11KeyboardOfServer : public testing::Test {
protected:
  X11KeyboardOfServer() { setenv("DISPLAY", session_.server().display().c_str(), 1); }

  static X11Keyboard read() {
    FailingLog log;
    const X11Connection x(log);
    return X11Keyboard::read(x);
  }

  /// The keys that give a keysym, with or without Shift or Num Lock.
  std::vector<xcb_keycode_t> keysWith(xcb_keysym_t keysym) {
    auto* xcb = session_.desktop().connection().get();
    const auto* setup = xcb_get_setup(xcb);
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
    const desktop::XcbPtr<xcb_get_keyboard_mapping_reply_t> map(xcb_get_keyboard_mapping_reply(
        xcb, xcb_get_keyboard_mapping(xcb, setup->min_keycode, count), nullptr));
    const auto* keysyms = xcb_get_keyboard_mapping_keysyms(map.get());
    std::vector<xcb_keycode_t> result;
    for (std::size_t key = 0; key < count; ++key) {
      const auto* first = keysyms + key * map->keysyms_per_keycode;
      if (std::find(first, first + map->keysyms_per_keycode, keysym) == first + map->keysyms_per_keycode)
        continue;
      result.push_back(static_cast<xcb_keycode_t>(setup->min_keycode + key));
    }
    return result;
  }

  /// What left arrow and a modifier are on a keyboard that has only one key for that modifier, with this
  /// keysym on it. The positions are those of the usual keys for it.
  std::optional<KeyChord> chordWithOnly(const std::string& keysym, const std::vector<std::string>& positions,
                                        std::uint32_t modifier) {
    std::vector<std::string> command{"xmodmap"};
    for (const auto& position : positions) {
      const auto key = std::to_string(session_.input().keyboard().at(position));
      command.emplace_back("-e");
      command.push_back("keycode " + key + " = " + (position == positions.front() ? keysym : "NoSymbol"));
    }
    auto change = session_.start("xmodmap", command);
    EXPECT_EQ(change.waitFor(desktop::answerTimeout),
              (desktop::ExitStatus{.code = 0, .signal = std::nullopt}))
        << change.output();
    return read().chordFor({123, modifier});
  }

  desktop::Session session_;
};

}  // namespace

TEST_F(X11KeyboardOfServer, HasEveryKeyWhereItsNameIsPrinted) {
  const auto keyboard = read();
  for (const auto& entry : KeyNames::table()) {
    const auto chord = keyboard.chordFor({entry.keyCode, 0});
    ASSERT_TRUE(chord) << entry.name;
    EXPECT_EQ(chord->modifiers, 0) << entry.name;
    const auto keys = keysWith(keysymOf(entry.name));
    EXPECT_NE(std::ranges::find(keys, chord->keycode), keys.end()) << entry.name;
    EXPECT_EQ(keyboard.keyCodeOf(chord->keycode), entry.keyCode) << entry.name;
  }
}

TEST_F(X11KeyboardOfServer, AModifierHasNoKeyCode) {
  const auto keyboard = read();
  for (const xcb_keysym_t modifier : {0xffe1U, 0xffe3U, 0xffe9U, 0xffebU}) {
    for (const auto key : keysWith(modifier)) EXPECT_EQ(keyboard.keyCodeOf(key), std::nullopt) << modifier;
  }
}

TEST_F(X11KeyboardOfServer, HasTheOptionModifierWhereThereIsOneKeyForIt) {
  const std::vector<std::string> keys{"LALT", "RALT", "META"};
  for (const char* keysym : {"Alt_L", "Alt_R", "Meta_L"}) {
    const auto chord = chordWithOnly(keysym, keys, HotKeySpec::option);
    ASSERT_TRUE(chord) << keysym;
    EXPECT_EQ(chord->modifiers, XCB_MOD_MASK_1) << keysym;
  }
  EXPECT_FALSE(chordWithOnly("NoSymbol", keys, HotKeySpec::option));
}

TEST_F(X11KeyboardOfServer, HasTheCommandModifierWhereThereIsOneKeyForIt) {
  const std::vector<std::string> keys{"LWIN", "RWIN", "SUPR", "HYPR"};
  for (const char* keysym : {"Super_L", "Super_R", "Hyper_L"}) {
    const auto chord = chordWithOnly(keysym, keys, HotKeySpec::cmd);
    ASSERT_TRUE(chord) << keysym;
    EXPECT_EQ(chord->modifiers, XCB_MOD_MASK_4) << keysym;
  }
  EXPECT_FALSE(chordWithOnly("NoSymbol", keys, HotKeySpec::cmd));
}

}  // namespace tilwin::x11
