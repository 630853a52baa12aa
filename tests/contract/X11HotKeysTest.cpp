#include <gtest/gtest.h>

#include <optional>
#include <vector>

#include "platform/qt/QtMainQueue.h"
#include "platform/x11/input/X11HotKeys.h"
#include "tests/contract/MainLoop.h"
#include "tests/contract/TestLogs.h"
#include "tests/desktop/harness/Session.h"

namespace tilwin::x11 {

namespace {

using desktop::Milliseconds;

constexpr std::uint32_t controlOption = HotKeySpec::control | HotKeySpec::option;
constexpr HotKeySpec left{123, controlOption};
constexpr HotKeySpec right{124, controlOption};
constexpr HotKeySpec up{126, controlOption};

/// The keymap in force, with one modifier more.
constexpr const char* scrollLockModifier =
    "setxkbmap -print | sed 's/inet(evdev)\"/& modifier_map Mod3 { Scroll_Lock };/' | xkbcomp -w 0 - "
    "$DISPLAY";

/// Longer than two repeats of a held key: the first comes after 660 ms, the others every 40 ms.
constexpr Milliseconds longHeld{1000};
constexpr Milliseconds patience{5000};

/// Two hot keys of a program on a real desktop whose keyboard is changed under them.
class X11HotKeysOnChangedKeyboard : public testing::Test {
protected:
  X11HotKeysOnChangedKeyboard() {
    setenv("DISPLAY", session_.server().display().c_str(), 1);
    x_.emplace(log_);
    hotKeys_.emplace(*x_, queue_);
    queue_.watch(x_->fileDescriptor(), [this] { x_->dispatch(); });
    queue_.beforeEachSleep([this] { return x_->dispatchQueued(); });
    hotKeys_->setPressHandler([this](std::uint32_t id) { presses_.push_back(id); });
    EXPECT_TRUE(hotKeys_->add(left, {0, 1}));
    EXPECT_TRUE(hotKeys_->add(right, {0, 2}));
  }

  void TearDown() override { EXPECT_TRUE(log_.lines.empty()); }

  /// Whether exactly these presses have come.
  testing::AssertionResult pressed(const std::vector<std::uint32_t>& ids) {
    runMainLoopUntil([&] { return presses_.size() >= ids.size(); }, patience);
    if (presses_ == ids) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "pressed " << testing::PrintToString(presses_);
  }

  void run(const std::vector<std::string>& command) {
    auto process = session_.start(command.front(), command);
    ASSERT_EQ(process.waitFor(patience), (desktop::ExitStatus{.code = 0, .signal = std::nullopt}))
        << process.output();
  }

  /// From then on it is a lock as Num Lock is.
  void makeScrollLockAModifier() { run({"sh", "-c", scrollLockModifier}); }

  xcb_keycode_t keyAt(const std::string& position) { return session_.input().keyboard().at(position); }

  /// Another program that has Control and Alt with this key.
  desktop::XConnection holderOf(xcb_keycode_t key) {
    desktop::XConnection other(session_.server().display());
    xcb_grab_key(other.get(), 1, other.root(), XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1, key,
                 XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    other.sync();
    return other;
  }

  /// Whether another program can no longer have the key with Control and Alt and these modifiers.
  bool isTaken(xcb_keycode_t key, unsigned moreModifiers = 0) {
    desktop::XConnection other(session_.server().display());
    const auto modifiers = static_cast<std::uint16_t>(XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1 | moreModifiers);
    const auto cookie = xcb_grab_key_checked(other.get(), 1, other.root(), modifiers, key,
                                             XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    const desktop::XcbPtr<xcb_generic_error_t> refusal(xcb_request_check(other.get(), cookie));
    xcb_ungrab_key(other.get(), key, other.root(), modifiers);
    other.sync();
    return refusal != nullptr;
  }

  /// A press of the left arrow with Control and Alt, and its release, as another client makes them up.
  void forgeAPress() {
    desktop::XConnection other(session_.server().display());
    xcb_key_press_event_t event{};
    event.detail = keyAt("LEFT");
    event.root = event.event = other.root();
    event.state = XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1;
    event.same_screen = 1;
    for (const int type : {XCB_KEY_PRESS, XCB_KEY_RELEASE}) {
      event.response_type = static_cast<std::uint8_t>(type);
      xcb_send_event(other.get(), 0, other.root(), XCB_EVENT_MASK_PROPERTY_CHANGE,
                     reinterpret_cast<const char*>(&event));
    }
    other.sync();
  }

  desktop::Session session_;
  KeptLog log_;
  qt::QtMainQueue queue_;
  std::optional<X11Connection> x_;
  std::optional<X11HotKeys> hotKeys_;
  std::vector<std::uint32_t> presses_;
};

}  // namespace

TEST_F(X11HotKeysOnChangedKeyboard, AKeyHeldMeanwhileIsOnePressAndTheNextOnesCount) {
  auto& hand = session_.input();
  for (const char* key : {"Control", "Alt", "<LEFT>"}) hand.keyDown(key);
  ASSERT_TRUE(pressed({1}));
  makeScrollLockAModifier();
  runMainLoop(longHeld);
  EXPECT_TRUE(pressed({1}));
  for (const char* key : {"<LEFT>", "Alt", "Control"}) hand.keyUp(key);
  hand.press("Control+Alt+<RGHT>");
  hand.press("Control+Alt+<LEFT>");
  EXPECT_TRUE(pressed({1, 2, 1}));
}

TEST_F(X11HotKeysOnChangedKeyboard, AKeyThatBecameALockDoesNotGetInTheWay) {
  makeScrollLockAModifier();
  for (const char* position : {"LEFT", "RGHT"}) {
    EXPECT_TRUE(runMainLoopUntil([&] { return isTaken(keyAt(position), XCB_MOD_MASK_3); }, patience));
  }
  session_.input().press("<SCLK>");
  session_.input().press("Control+Alt+<LEFT>");
  session_.input().press("Control+Alt+<RGHT>");
  EXPECT_TRUE(pressed({1, 2}));
}

TEST_F(X11HotKeysOnChangedKeyboard, AKeyMadeALockInTheRunningKeymapDoesNotGetInTheWay) {
  run({"xmodmap", "-e", "add mod3 = Scroll_Lock"});
  EXPECT_TRUE(runMainLoopUntil([&] { return isTaken(keyAt("LEFT"), XCB_MOD_MASK_3); }, patience));
}

TEST_F(X11HotKeysOnChangedKeyboard, TheKeyWithTheLowestCodeMayBeALockToo) {
  run({"xmodmap", "-e", "keysym Scroll_Lock = NoSymbol", "-e", "keycode 8 = Scroll_Lock", "-e",
       "add mod3 = Scroll_Lock"});
  EXPECT_TRUE(runMainLoopUntil([&] { return isTaken(keyAt("LEFT"), XCB_MOD_MASK_3); }, patience));
}

TEST_F(X11HotKeysOnChangedKeyboard, WhatIsALockNoMoreIsGivenBack) {
  makeScrollLockAModifier();
  EXPECT_TRUE(runMainLoopUntil([&] { return isTaken(keyAt("LEFT"), XCB_MOD_MASK_3); }, patience));
  session_.server().setKeyboardLayout("us");
  EXPECT_TRUE(runMainLoopUntil([&] { return !isTaken(keyAt("LEFT"), XCB_MOD_MASK_3); }, patience));
  EXPECT_TRUE(isTaken(keyAt("LEFT")));
}

TEST_F(X11HotKeysOnChangedKeyboard, AKeyWithAnotherCodeIsFollowedAndItsOldCodeGivenBack) {
  const auto before = keyAt("LEFT");
  run({"setxkbmap", "-keycodes", "xfree86"});
  const auto after = keyAt("LEFT");
  ASSERT_NE(after, before);
  EXPECT_TRUE(runMainLoopUntil([&] { return isTaken(after) && !isTaken(before); }, patience));
  session_.input().press("Control+Alt+<LEFT>");
  EXPECT_TRUE(pressed({1}));
}

TEST_F(X11HotKeysOnChangedKeyboard, ACombinationTakenOnTheNewOneIsToldOfAndWorksAgainOnTheNextOne) {
  constexpr xcb_keycode_t leftOfXFree86 = 100;
  const auto other = holderOf(leftOfXFree86);
  const auto before = keyAt("LEFT");
  bool isToldOf = false;
  hotKeys_->setChangeHandler([&] { isToldOf = true; });
  run({"setxkbmap", "-keycodes", "xfree86"});
  ASSERT_EQ(keyAt("LEFT"), leftOfXFree86);
  EXPECT_TRUE(runMainLoopUntil([&] { return isToldOf; }, patience));
  session_.input().press("Control+Alt+<LEFT>");
  session_.input().press("Control+Alt+<RGHT>");
  EXPECT_TRUE(pressed({2}));
  session_.server().setKeyboardLayout("us");
  ASSERT_TRUE(runMainLoopUntil([&] { return isTaken(before) && isTaken(keyAt("RGHT")); }, patience));
  session_.input().press("Control+Alt+<LEFT>");
  session_.input().press("Control+Alt+<RGHT>");
  EXPECT_TRUE(pressed({2, 1, 2}));
}

TEST_F(X11HotKeysOnChangedKeyboard, ACombinationThatWasRefusedCanBeHadWhenTheChangeIsToldOf) {
  bool isHad = false;
  {
    const auto other = holderOf(keyAt("UP"));
    EXPECT_FALSE(hotKeys_->add(up, {0, 3}));
    hotKeys_->setChangeHandler([&] { isHad = hotKeys_->add(up, {0, 3}).has_value(); });
  }
  makeScrollLockAModifier();
  EXPECT_TRUE(runMainLoopUntil([&] { return isHad; }, patience));
  session_.input().press("Control+Alt+<UP>");
  EXPECT_TRUE(pressed({3}));
}

TEST_F(X11HotKeysOnChangedKeyboard, AServerThatHasGoneGrantsNoneAndIsToldOf) {
  bool isToldOf = false;
  x_->onLost([&] { isToldOf = true; });
  session_.server().process().end();
  EXPECT_FALSE(hotKeys_->add(up, {0, 3}));
  EXPECT_TRUE(isToldOf);
}

TEST_F(X11HotKeysOnChangedKeyboard, APressMadeUpByAnotherClientIsNone) {
  forgeAPress();
  session_.input().press("Control+Alt+<RGHT>");
  EXPECT_TRUE(pressed({2}));
}

}  // namespace tilwin::x11
