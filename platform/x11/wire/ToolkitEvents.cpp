#include "platform/x11/wire/ToolkitEvents.h"

#include <xcb/randr.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <utility>

#include "platform/x11/wire/Reply.h"

namespace tilwin::x11 {

namespace {

constexpr std::uint8_t madeByClient = 0x80;
constexpr std::array toldOfRoot{Atom::netWorkarea, Atom::netSupported};
/// Requests between clients, what a window manager tells of a window's place, and transfers of selections.
constexpr std::array<std::uint8_t, 3> ofUse{XCB_CLIENT_MESSAGE, XCB_CONFIGURE_NOTIFY, XCB_SELECTION_NOTIFY};

constexpr std::size_t mostAnnounced = 8;

xcb_window_t unseenWindow(xcb_connection_t* connection, xcb_window_t root) {
  const xcb_window_t window = xcb_generate_id(connection);
  xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, root, -1, -1, 1, 1, 0,
                    XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
  return window;
}

}  // namespace

ToolkitEvents::ToolkitEvents(X11Connection& x, MainQueue& queue, xcb_connection_t* toolkit)
    : x_(x),
      queue_(queue),
      toolkit_(toolkit),
      receiver_(unseenWindow(toolkit, x.root())),
      telling_(queue, pause, [this] { tell(); }) {
  constexpr std::string_view name = "MANAGER";
  const auto known =
      Pending<xcb_intern_atom_reply>(x_.get(), xcb_intern_atom(x_.get(), 0, name.size(), name.data()))
          .collect();
  if (known) manager_ = known->atom;
  deafenToRoot();
  x_.onEvent(XCB_PROPERTY_NOTIFY, [this](const xcb_generic_event_t& event) {
    rootChanged(reinterpret_cast<const xcb_property_notify_event_t&>(event));
  });
  const auto screenChange = x_.firstEvent(xcb_randr_id) + XCB_RANDR_SCREEN_CHANGE_NOTIFY;
  x_.onEvent(static_cast<std::uint8_t>(screenChange),
             [this](const xcb_generic_event_t&) { telling_.need(); });
  x_.onEvent(XCB_CLIENT_MESSAGE, [this](const xcb_generic_event_t& event) {
    rootTold(reinterpret_cast<const xcb_client_message_event_t&>(event));
  });
}

void ToolkitEvents::rootChanged(const xcb_property_notify_event_t& event) {
  const bool matters =
      std::ranges::any_of(toldOfRoot, [&](Atom each) { return x_.atom(each) == event.atom; });
  if (event.window != x_.root() || !matters) return;
  changed_.insert(event.atom);
  telling_.need();
}

void ToolkitEvents::rootTold(const xcb_client_message_event_t& event) {
  const std::uint32_t selection = event.data.data32[1];
  if (event.window != x_.root() || event.type != manager_ || event.format != 32) return;
  if (announced_.size() == mostAnnounced && !announced_.contains(selection)) return;
  announced_[selection] = event;
  telling_.need();
}

void ToolkitEvents::deafenToRoot() {
  const auto root =
      Pending<xcb_get_window_attributes_reply>(toolkit_, xcb_get_window_attributes(toolkit_, x_.root()))
          .collect();
  if (!root) return;
  constexpr std::uint32_t unheard = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
  const std::uint32_t mask = root->your_event_mask & ~unheard;
  xcb_change_window_attributes(toolkit_, x_.root(), XCB_CW_EVENT_MASK, &mask);
  xcb_flush(toolkit_);
}

/// An event sent with an empty mask goes to the client that created the window. Qt listens to the root again
/// for each display that comes.
void ToolkitEvents::tell() {
  deafenToRoot();
  const auto send = [this](const auto& event) {
    xcb_send_event(x_.get(), 0, receiver_, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&event));
  };
  for (const auto atom : std::exchange(changed_, {})) {
    // The server reads 32 bytes, whatever the event.
    struct {
      xcb_property_notify_event_t event{};
      std::array<char, 32 - sizeof event> rest{};
    } whole;
    auto& event = whole.event;
    event.response_type = XCB_PROPERTY_NOTIFY;
    event.window = x_.root();
    event.atom = atom;
    event.state = XCB_PROPERTY_NEW_VALUE;
    send(whole);
    ++told_;
  }
  for (const auto& [selection, event] : std::exchange(announced_, {})) send(event);
  x_.flush();
}

bool ToolkitEvents::wants(const xcb_generic_event_t& event) {
  if ((event.response_type & madeByClient) == 0) return true;
  const std::uint8_t type = event.response_type & ~madeByClient;
  if (type == XCB_PROPERTY_NOTIFY) return told_ > 0 && told_-- > 0;
  if (std::ranges::find(ofUse, type) == ofUse.end()) return false;
  const auto now = queue_.uptime();
  if (now - since_ > pause) {
    since_ = now;
    sent_ = 0;
  }
  return sent_++ < mostSent;
}

}  // namespace tilwin::x11
