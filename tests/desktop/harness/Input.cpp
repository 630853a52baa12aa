#include "tests/desktop/harness/Input.h"

#include <xcb/xtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <thread>

#include "tests/desktop/harness/HarnessError.h"

namespace tilwin::desktop {

namespace {

/// Longer than any toolkit or manager here waits for a second click (500 ms).
constexpr Milliseconds doubleClickTime{520};
constexpr Milliseconds lastMoves{40};
/// A hand that has just pressed does not move within the millisecond.
constexpr Milliseconds firstMove{30};
constexpr Milliseconds pollTime{1};

void fake(XConnection& connection, std::uint8_t type, std::uint8_t detail, PixelPoint at = {}) {
  xcb_test_fake_input(connection.get(), type, detail, XCB_CURRENT_TIME, connection.root(),
                      static_cast<std::int16_t>(at.x), static_cast<std::int16_t>(at.y), 0);
}

XcbPtr<xcb_query_pointer_reply_t> queryPointer(XConnection& connection) {
  xcb_connection_t* xcb = connection.get();
  XcbPtr<xcb_query_pointer_reply_t> reply(
      xcb_query_pointer_reply(xcb, xcb_query_pointer(xcb, connection.root()), nullptr));
  if (!reply) throw HarnessError("the X connection is lost");
  return reply;
}

}  // namespace

Input::Input(const std::string& display) : connection_(display), keyboard_(connection_) {}

Input::~Input() {
  for (const auto button : std::vector(heldButtons_)) buttonUp(button);
  for (const auto keycode : std::vector(heldKeys_)) key(keycode, false);
  connection_.sync();
}

void Input::key(xcb_keycode_t keycode, bool down) {
  fake(connection_, down ? XCB_KEY_PRESS : XCB_KEY_RELEASE, keycode);
  if (down) heldKeys_.push_back(keycode);
  if (!down) std::erase(heldKeys_, keycode);
}

Clock::time_point Input::pressKeys(const std::vector<xcb_keycode_t>& keys) {
  if (keys.empty()) throw HarnessError("no key to press");
  std::for_each(keys.begin(), keys.end() - 1, [this](auto modifier) { key(modifier, true); });
  connection_.sync();
  const auto moment = Clock::now();
  key(keys.back(), true);
  connection_.flush();
  std::for_each(keys.rbegin(), keys.rend(), [this](auto held) { key(held, false); });
  connection_.sync();
  return moment;
}

Clock::time_point Input::press(const std::string& chord) { return pressKeys(keyboard_.chord(chord)); }

Clock::time_point Input::pressAt(const std::string& position, const std::string& modifiers) {
  return pressKeycode(keyboard_.at(position), modifiers);
}

Clock::time_point Input::pressKeycode(xcb_keycode_t keycode, const std::string& modifiers) {
  auto keys = keyboard_.chord(modifiers);
  keys.push_back(keycode);
  return pressKeys(keys);
}

void Input::keyDown(const std::string& name) {
  key(keyboard_.named(name), true);
  connection_.sync();
}

void Input::keyUp(const std::string& name) {
  key(keyboard_.named(name), false);
  connection_.sync();
}

bool Input::locked(std::uint16_t mask) { return (queryPointer(connection_)->mask & mask) != 0; }

void Input::setLock(const char* keyName, bool on) {
  const auto keycode = keyboard_.named(keyName);
  const auto mask = keyboard_.modifier(keycode);
  if (locked(mask) == on) return;
  pressKeycode(keycode);
  if (locked(mask) != on) throw HarnessError(std::string(keyName) + " does not switch");
}

void Input::setCapsLock(bool on) { setLock("Caps_Lock", on); }

void Input::setNumLock(bool on) { setLock("Num_Lock", on); }

bool Input::capsLock() { return locked(keyboard_.modifier(keyboard_.named("Caps_Lock"))); }

bool Input::numLock() { return locked(keyboard_.modifier(keyboard_.named("Num_Lock"))); }

void Input::movePointer(PixelPoint to) {
  fake(connection_, XCB_MOTION_NOTIFY, 0, to);
  connection_.sync();
}

PixelPoint Input::pointer() {
  const auto reply = queryPointer(connection_);
  return {reply->root_x, reply->root_y};
}

void Input::setLeftHanded(bool on) {
  std::array<std::uint8_t, 32> order{};
  xcb_connection_t* xcb = connection_.get();
  const XcbPtr<xcb_get_pointer_mapping_reply_t> before(
      xcb_get_pointer_mapping_reply(xcb, xcb_get_pointer_mapping(xcb), nullptr));
  if (!before || before->map_len < 3 || before->map_len > order.size()) {
    throw HarnessError("the pointer's buttons are not known");
  }
  std::iota(order.begin(), order.end(), std::uint8_t{1});
  if (on) std::swap(order[0], order[2]);
  const XcbPtr<xcb_set_pointer_mapping_reply_t> reply(xcb_set_pointer_mapping_reply(
      xcb, xcb_set_pointer_mapping(xcb, before->map_len, order.data()), nullptr));
  if (!reply || reply->status != XCB_MAPPING_STATUS_SUCCESS)
    throw HarnessError("the pointer's buttons cannot be exchanged");
}

void Input::buttonDown(int button) {
  lastButtonDown_ = Clock::now();
  fake(connection_, XCB_BUTTON_PRESS, static_cast<std::uint8_t>(button));
  heldButtons_.push_back(static_cast<std::uint8_t>(button));
  connection_.sync();
}

void Input::buttonUp(int button) {
  fake(connection_, XCB_BUTTON_RELEASE, static_cast<std::uint8_t>(button));
  std::erase(heldButtons_, static_cast<std::uint8_t>(button));
  connection_.sync();
}

void Input::click(PixelPoint at, int button) {
  movePointer(at);
  buttonDown(button);
  buttonUp(button);
}

void Input::glide(PixelPoint to, int steps, Milliseconds step) {
  const PixelPoint from = pointer();
  for (int i = 1; i <= steps; ++i) {
    const double part = static_cast<double>(i) / steps;
    movePointer({from.x + static_cast<int>(std::lround((to.x - from.x) * part)),
                 from.y + static_cast<int>(std::lround((to.y - from.y) * part))});
    std::this_thread::sleep_for(step);
  }
}

void Input::takeHold(PixelPoint at, int button) {
  std::this_thread::sleep_until(lastButtonDown_ + doubleClickTime);
  movePointer(at);
  const auto deadline = Clock::now() + answerTimeout;
  while (queryPointer(connection_)->child == XCB_NONE) {
    if (Clock::now() > deadline) throw HarnessError("there is no window to take hold of");
    std::this_thread::sleep_for(pollTime);
  }
  buttonDown(button);
  std::this_thread::sleep_for(firstMove);
}

void Input::comeToRest(PixelPoint at) {
  const PixelPoint from = pointer();
  const auto oneBack = [](int start, int end) { return start < end ? end - 1 : end + (start > end ? 1 : 0); };
  glide({oneBack(from.x, at.x), oneBack(from.y, at.y)});
  std::this_thread::sleep_for(lastMoves);
  movePointer(at);
  std::this_thread::sleep_for(lastMoves);
}

void Input::drag(PixelPoint from, PixelPoint to, int steps, Milliseconds step) {
  takeHold(from);
  glide(to, steps, step);
  buttonUp();
}

}  // namespace tilwin::desktop
