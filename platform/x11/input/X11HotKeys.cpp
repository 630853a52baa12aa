#include "platform/x11/input/X11HotKeys.h"

#include "platform/x11/wire/XkbProtocol.h"

#include <algorithm>
#include <limits>
#include <utility>
#include <vector>

#include "platform/x11/wire/Reply.h"

namespace tilwin::x11 {

namespace {

/// A change of the keyboard layout causes a burst of events.
constexpr MainQueue::Seconds afterBurst{0.05};

}  // namespace

X11HotKeys::X11HotKeys(X11Connection& x, MainQueue& queue)
    : x_(x),
      keyboard_(X11Keyboard::read(x)),
      keyboardReading_(queue, afterBurst, [this] { rereadKeyboard(); }) {
  listenToEvents();
}

X11HotKeys::~X11HotKeys() {
  while (!registrations_.empty()) remove(registrations_.begin()->first);
  x_.flush();
}

void X11HotKeys::listenToEvents() {
  constexpr std::uint32_t detectable = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
  const Pending<xcb_xkb_per_client_flags_reply> unread(
      x_.get(), xcb_xkb_per_client_flags(x_.get(), XCB_XKB_ID_USE_CORE_KBD, detectable, detectable, 0, 0, 0));
  constexpr std::uint16_t changes = XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY;
  constexpr std::uint16_t parts = XCB_XKB_MAP_PART_KEY_SYMS | XCB_XKB_MAP_PART_MODIFIER_MAP;
  xcb_xkb_select_events(x_.get(), XCB_XKB_ID_USE_CORE_KBD, changes, 0, changes, parts, parts, nullptr);
  const auto reread = [this](const xcb_generic_event_t&) { keyboardReading_.need(); };
  x_.onEvent(x_.firstEvent(xcb_xkb_id), reread);
  x_.onEvent(XCB_MAPPING_NOTIFY, reread);
  x_.onEvent(XCB_KEY_PRESS, [this](const xcb_generic_event_t& event) {
    keyPressed(reinterpret_cast<const xcb_key_press_event_t&>(event));
  });
  x_.onEvent(XCB_KEY_RELEASE, [this](const xcb_generic_event_t& event) {
    held_.release(reinterpret_cast<const xcb_key_release_event_t&>(event).detail);
  });
}

std::optional<HotKeys::Reference> X11HotKeys::add(const HotKeySpec& spec, const HotKeyIdentity& identity) {
  const auto chord = grabFor(spec);
  if (!chord) return std::nullopt;
  registrations_.emplace(nextReference_, Registration{spec, identity, chord});
  return nextReference_++;
}

void X11HotKeys::remove(Reference reference) {
  const auto found = registrations_.find(reference);
  if (found == registrations_.end()) return;
  if (found->second.chord) ungrab(*found->second.chord);
  registrations_.erase(found);
}

/// Refuses a chord that this program has already grabbed. The server would allow it, but the first `ungrab`
/// would then release it for both.
std::optional<KeyChord> X11HotKeys::grabFor(const HotKeySpec& spec) const {
  const auto chord = keyboard_.chordFor(spec);
  const bool ours =
      std::ranges::any_of(registrations_, [&](const auto& entry) { return entry.second.chord == chord; });
  return chord && !ours && grab(*chord) ? chord : std::nullopt;
}

bool X11HotKeys::grab(const KeyChord& chord) const {
  std::vector<xcb_void_cookie_t> asked;
  for (const auto locks : keyboard_.lockCombinations()) {
    asked.push_back(xcb_grab_key_checked(x_.get(), 0, x_.root(), chord.modifiers | locks, chord.keycode,
                                         XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
  }
  bool granted = true;
  for (const auto cookie : asked) {
    const Reply<xcb_generic_error_t> refusal(xcb_request_check(x_.get(), cookie));
    granted = granted && !refusal;
  }
  // A server that has gone refuses nothing.
  x_.tellIfLost();
  granted = granted && !x_.isLost();
  if (!granted) ungrab(chord);
  return granted;
}

void X11HotKeys::ungrab(const KeyChord& chord) const {
  for (const auto locks : keyboard_.lockCombinations()) {
    xcb_ungrab_key(x_.get(), chord.keycode, x_.root(), chord.modifiers | locks);
  }
}

void X11HotKeys::keyPressed(const xcb_key_press_event_t& event) {
  if (!held_.press(event.detail, event.time)) return;
  const KeyChord chord{event.detail, keyboard_.chordModifiers(event.state)};
  const auto found =
      std::ranges::find_if(registrations_, [&](const auto& entry) { return entry.second.chord == chord; });
  if (found != registrations_.end() && handler_) handler_(found->second.identity.id);
}

void X11HotKeys::rereadKeyboard() {
  auto keyboard = X11Keyboard::read(x_);
  if (keyboard == keyboard_) return;
  for (const auto& [reference, registration] : registrations_) {
    if (registration.chord) ungrab(*registration.chord);
  }
  for (auto& [reference, registration] : registrations_) registration.chord.reset();
  keyboard_ = std::move(keyboard);
  for (auto& [reference, registration] : registrations_) registration.chord = grabFor(registration.spec);
  x_.flush();
  tellOfChange();
}

std::optional<std::uint32_t> X11HotKeys::keyCodeOf(std::uint32_t nativeScanCode) const {
  if (nativeScanCode > std::numeric_limits<xcb_keycode_t>::max()) return std::nullopt;
  return keyboard_.keyCodeOf(static_cast<xcb_keycode_t>(nativeScanCode));
}

void X11HotKeys::tellOfChange() const {
  // A copy, because the handler may set another one.
  if (const auto handler = onChange_) handler();
}

}  // namespace tilwin::x11
