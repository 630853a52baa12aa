#include "platform/x11/input/X11Pointer.h"

#include "platform/x11/wire/XkbProtocol.h"

#include <algorithm>
#include <cstddef>
#include <span>
#include <utility>

#include "platform/x11/wire/Reply.h"

namespace tilwin::x11 {

namespace {

constexpr std::uint8_t leftButton = 1;
constexpr xcb_keysym_t escape = 0xff1b;  // XK_Escape

constexpr std::uint32_t buttonEvents =
    XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS | XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_RELEASE;
constexpr std::uint32_t heldEvents = buttonEvents | XCB_INPUT_XI_EVENT_MASK_RAW_KEY_PRESS;
constexpr std::uint32_t dragEvents = heldEvents | XCB_INPUT_XI_EVENT_MASK_RAW_MOTION;

struct EventSelection {
  xcb_input_event_mask_t head;
  std::uint32_t mask;
};

/// More button events than a hand makes in one turn of the loop. The oldest ones are forgotten: of many
/// clicks that came together, the last ones tell where things stand.
constexpr std::size_t mostNoted = 8;

std::vector<std::uint8_t> buttonsIn(const xcb_get_pointer_mapping_reply_t& reply) {
  const auto* first = xcb_get_pointer_mapping_map(&reply);
  return {first, first + xcb_get_pointer_mapping_map_length(&reply)};
}

/// The keys that have Escape in any of their groups and levels.
std::vector<std::uint32_t> escapesIn(const xcb_get_keyboard_mapping_reply_t& reply, xcb_keycode_t first) {
  const std::span symbols(xcb_get_keyboard_mapping_keysyms(&reply),
                          static_cast<std::size_t>(xcb_get_keyboard_mapping_keysyms_length(&reply)));
  std::vector<std::uint32_t> result;
  for (std::size_t index = 0; index < symbols.size(); ++index) {
    if (symbols[index] == escape) {
      result.push_back(static_cast<std::uint32_t>(first + index / reply.keysyms_per_keycode));
    }
  }
  return result;
}

}  // namespace

X11Pointer::X11Pointer(X11Connection& x, HeldWindow& held, MainQueue& queue)
    : x_(x),
      held_(held),
      drag_(
          queue, [this] { tell(PointerEvent::leftMouseDragged); }, [this] { lookAgain(); }) {
  x_.onEvent(XCB_GE_GENERIC, [this](const xcb_generic_event_t& event) {
    rawEvent(reinterpret_cast<const xcb_ge_generic_event_t&>(event));
  });
  const auto stale = [this](const xcb_generic_event_t&) { isMappingStale_ = true; };
  x_.onEvent(XCB_MAPPING_NOTIFY, stale);
  x_.onEvent(x_.firstEvent(xcb_xkb_id), stale);
  x_.afterEvents([this] { handleNoted(); });
  readMapping();
}

std::unique_ptr<PointerMonitor::Token> X11Pointer::addGlobal(PointerEvent events, Handler handler) {
  if (!isDown_) select(buttonEvents);
  return monitors_[events].add(std::move(handler));
}

std::unique_ptr<PointerMonitor::Token> X11Pointer::addLocal(PointerEvent /*events*/, Handler /*handler*/) {
  return nullptr;
}

std::unique_ptr<PointerMonitor::Token> X11Pointer::addCancelled(std::function<void()> handler) {
  return cancellations_.add(std::move(handler));
}

Point X11Pointer::position() {
  const auto place = drag_.place();
  return place ? *place : read();
}

Point X11Pointer::read() const {
  const auto pointer =
      Pending<xcb_query_pointer_reply>(x_.get(), xcb_query_pointer(x_.get(), x_.root())).collect();
  return pointer ? Point{static_cast<double>(pointer->root_x), static_cast<double>(pointer->root_y)}
                 : Point{};
}

void X11Pointer::rawEvent(const xcb_ge_generic_event_t& event) {
  if (event.extension != x_.majorOpcode(xcb_input_id)) return;
  // The raw events of buttons, keys and motion have the same layout.
  note({event.event_type, reinterpret_cast<const xcb_input_raw_button_press_event_t&>(event).detail});
}

/// Keeps what may matter. Motion is of one kind, so one note of it is as good as many.
void X11Pointer::note(const Noted& what) {
  const bool isMotion = what.event == XCB_INPUT_RAW_MOTION;
  if (isMotion && !noted_.empty() && noted_.back().event == what.event) return;
  if (what.event == XCB_INPUT_RAW_KEY_PRESS && !isEscape(what.detail)) return;
  if ((what.event == XCB_INPUT_RAW_BUTTON_PRESS || what.event == XCB_INPUT_RAW_BUTTON_RELEASE) &&
      !isLeft(what.detail)) {
    return;
  }
  if (noted_.size() == mostNoted) noted_.erase(noted_.begin());
  noted_.push_back(what);
}

void X11Pointer::handleNoted() {
  for (const auto& [event, detail] : std::exchange(noted_, {})) {
    if (event == XCB_INPUT_RAW_BUTTON_PRESS) buttonPressed(detail);
    if (event == XCB_INPUT_RAW_BUTTON_RELEASE) buttonReleased(detail);
    if (event == XCB_INPUT_RAW_MOTION) moved();
    if (event == XCB_INPUT_RAW_KEY_PRESS) keyPressed(detail);
  }
  readMapping();
}

void X11Pointer::buttonPressed(std::uint32_t button) {
  if (!isLeft(button)) return;
  isDown_ = true;
  isResting_ = true;
  ask(dragEvents);
  drag_.press(read(), [this] { tell(PointerEvent::leftMouseDown); });
}

void X11Pointer::buttonReleased(std::uint32_t button) {
  if (!isLeft(button) || !std::exchange(isDown_, false)) return;
  ask(buttonEvents);
  const auto told = drag_.told();
  drag_.release(isResting_ && told ? *told : read(), [this] {
    tell(PointerEvent::leftMouseUp);
    held_.letGo();
  });
  x_.flush();
}

void X11Pointer::moved() {
  isResting_ = false;
  if (isDown_ && !drag_.isPausing()) tellMove(look());
}

/// Reports a move if the pointer has moved since the last one. If it rests, selects motion events and then
/// reads the pointer once more, so that a move between the first read and the selection is not missed.
void X11Pointer::lookAgain() {
  if (!isDown_) return;
  Point at = look();
  if (at == drag_.told()) {
    ask(dragEvents);
    at = look();
    isResting_ = at == drag_.told();
  }
  if (at != drag_.told()) tellMove(at);
}

Point X11Pointer::look() {
  held_.askAhead();
  return read();
}

void X11Pointer::tellMove(Point to) {
  ask(heldEvents);
  isResting_ = false;
  drag_.move(to);
  x_.flush();
}

void X11Pointer::keyPressed(std::uint32_t keycode) {
  if (isDown_ && isEscape(keycode)) cancellations_.tell();
}

bool X11Pointer::isLeft(std::uint32_t button) const {
  return button > 0 && button <= buttons_.size() && buttons_[button - 1] == leftButton;
}

bool X11Pointer::isEscape(std::uint32_t keycode) const {
  return std::ranges::find(escapes_, keycode) != escapes_.end();
}

void X11Pointer::readMapping() {
  if (!std::exchange(isMappingStale_, false)) return;
  const auto* setup = xcb_get_setup(x_.get());
  const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
  Pending<xcb_get_pointer_mapping_reply> buttons(x_.get(), xcb_get_pointer_mapping(x_.get()));
  Pending<xcb_get_keyboard_mapping_reply> keys(x_.get(),
                                               xcb_get_keyboard_mapping(x_.get(), setup->min_keycode, count));
  if (const auto reply = buttons.collect()) buttons_ = buttonsIn(*reply);
  if (const auto reply = keys.collect()) escapes_ = escapesIn(*reply, setup->min_keycode);
}

void X11Pointer::select(std::uint32_t events) {
  ask(events);
  x_.flush();
}

void X11Pointer::ask(std::uint32_t events) {
  if (std::exchange(asked_, events) == events) return;
  const EventSelection selection{{XCB_INPUT_DEVICE_ALL_MASTER, 1}, events};
  xcb_input_xi_select_events(x_.get(), x_.root(), 1, &selection.head);
}

void X11Pointer::tell(PointerEvent event) {
  if (const auto found = monitors_.find(event); found != monitors_.end()) found->second.tell(event);
}

}  // namespace tilwin::x11
