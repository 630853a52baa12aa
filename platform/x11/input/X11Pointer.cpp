#include "platform/x11/input/X11Pointer.h"

#include <algorithm>
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

bool isEscape(xcb_connection_t* connection, xcb_keycode_t keycode) {
  const auto keys =
      Pending<xcb_get_keyboard_mapping_reply>(connection, xcb_get_keyboard_mapping(connection, keycode, 1))
          .collect();
  if (!keys) return false;
  const auto* symbols = xcb_get_keyboard_mapping_keysyms(keys.get());
  return std::find(symbols, symbols + keys->keysyms_per_keycode, escape) !=
         symbols + keys->keysyms_per_keycode;
}

}  // namespace

X11Pointer::X11Pointer(X11Connection& x, HeldWindow& held, MainQueue& queue)
    : x_(x), held_(held), nextLook_(queue, betweenLooks, [this] { lookAgain(); }) {
  x_.onEvent(XCB_GE_GENERIC, [this](const xcb_generic_event_t& event) {
    rawEvent(reinterpret_cast<const xcb_ge_generic_event_t&>(event));
  });
  x_.onEvent(XCB_MAPPING_NOTIFY, [this](const xcb_generic_event_t& event) {
    const auto& change = reinterpret_cast<const xcb_mapping_notify_event_t&>(event);
    if (change.request == XCB_MAPPING_POINTER) readButtons();
  });
  readButtons();
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
  if (telling_) return *telling_;
  const auto pointer =
      Pending<xcb_query_pointer_reply>(x_.get(), xcb_query_pointer(x_.get(), x_.root())).collect();
  return pointer ? Point{static_cast<double>(pointer->root_x), static_cast<double>(pointer->root_y)}
                 : Point{};
}

void X11Pointer::rawEvent(const xcb_ge_generic_event_t& event) {
  if (event.extension != xcb_get_extension_data(x_.get(), &xcb_input_id)->major_opcode) return;
  // The raw events of buttons, keys and motion have the same layout.
  const auto detail = reinterpret_cast<const xcb_input_raw_button_press_event_t&>(event).detail;
  switch (event.event_type) {
    case XCB_INPUT_RAW_BUTTON_PRESS:
      return buttonPressed(detail);
    case XCB_INPUT_RAW_BUTTON_RELEASE:
      return buttonReleased(detail);
    case XCB_INPUT_RAW_MOTION:
      return moved();
    case XCB_INPUT_RAW_KEY_PRESS:
      return keyPressed(detail);
    default:
      return;
  }
}

void X11Pointer::buttonPressed(std::uint32_t button) {
  if (!isLeft(button)) return;
  isDown_ = true;
  select(dragEvents);
  tell(PointerEvent::leftMouseDown);
}

void X11Pointer::buttonReleased(std::uint32_t button) {
  if (!isLeft(button) || !std::exchange(isDown_, false)) return;
  select(buttonEvents);
  tell(PointerEvent::leftMouseUp);
}

void X11Pointer::moved() {
  if (isDown_ && !nextLook_.isNeeded()) tellMove(look());
}

/// Reports a move if the pointer has moved since the last one. If it rests, selects motion events and then
/// reads the pointer once more, so that a move between the first read and the selection is not missed.
void X11Pointer::lookAgain() {
  if (!isDown_) return;
  Point at = look();
  if (at == told_) {
    ask(dragEvents);
    at = look();
  }
  if (at != told_) tellMove(at);
}

Point X11Pointer::look() {
  held_.askAhead();
  return position();
}

void X11Pointer::tellMove(Point to) {
  ask(heldEvents);
  told_ = to;
  telling_ = to;
  tell(PointerEvent::leftMouseDragged);
  telling_.reset();
  // Counted from here, after the handlers: a receiver that ignores moves for `betweenLooks` after its own
  // look must not ignore the one that shows where the pointer came to rest.
  nextLook_.need();
  x_.flush();
}

void X11Pointer::keyPressed(std::uint32_t keycode) {
  if (isDown_ && isEscape(x_.get(), static_cast<xcb_keycode_t>(keycode))) cancellations_.tell();
}

bool X11Pointer::isLeft(std::uint32_t button) const {
  return button > 0 && button <= buttons_.size() && buttons_[button - 1] == leftButton;
}

void X11Pointer::readButtons() {
  const auto mapping =
      Pending<xcb_get_pointer_mapping_reply>(x_.get(), xcb_get_pointer_mapping(x_.get())).collect();
  if (!mapping) return;
  const auto* first = xcb_get_pointer_mapping_map(mapping.get());
  buttons_.assign(first, first + xcb_get_pointer_mapping_map_length(mapping.get()));
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
