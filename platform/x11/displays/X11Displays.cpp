#include "platform/x11/displays/X11Displays.h"

#include <xcb/randr.h>

#include <algorithm>
#include <array>
#include <utility>

#include "platform/x11/wire/ClientList.h"
#include "platform/x11/wire/Property.h"
#include "platform/x11/wire/Reply.h"

namespace tilwin::x11 {

namespace {

constexpr MainQueue::Seconds soon{0.02};

constexpr std::array changesOnRoot{Atom::netClientList, Atom::netWorkarea};
constexpr std::array changesOnPanel{Atom::netWmStrut, Atom::netWmStrutPartial};

DisplayInfo displayFor(const xcb_randr_monitor_info_t& monitor) {
  const Rect frame{static_cast<double>(monitor.x), static_cast<double>(monitor.y),
                   static_cast<double>(monitor.width), static_cast<double>(monitor.height)};
  return {.id = monitor.name, .frame = frame, .visibleFrame = frame, .isPrimary = monitor.primary != 0};
}

std::vector<DisplayInfo> monitorsIn(const xcb_randr_get_monitors_reply_t& reply) {
  std::vector<DisplayInfo> result;
  for (auto monitors = xcb_randr_get_monitors_monitors_iterator(&reply); monitors.rem > 0;
       xcb_randr_monitor_info_next(&monitors)) {
    result.push_back(displayFor(*monitors.data));
  }
  std::stable_partition(result.begin(), result.end(),
                        [](const DisplayInfo& display) { return display.isPrimary; });
  for (auto& display : result) display.isPrimary = &display == result.data();
  return result;
}

struct StrutQuestions {
  xcb_window_t window;
  PropertyRequest partial;
  PropertyRequest whole;
};

}  // namespace

X11Displays::X11Displays(X11Connection& x, MainQueue& queue)
    : x_(x), queue_(queue), reading_(queue, soon, [this] { refresh(); }) {
  xcb_randr_select_input(x_.get(), x_.root(),
                         XCB_RANDR_NOTIFY_MASK_SCREEN_CHANGE | XCB_RANDR_NOTIFY_MASK_CRTC_CHANGE |
                             XCB_RANDR_NOTIFY_MASK_OUTPUT_CHANGE);
  const auto stale = [this](const xcb_generic_event_t&) { reading_.need(); };
  const std::uint8_t randr = x_.firstEvent(xcb_randr_id);
  x_.onEvent(static_cast<std::uint8_t>(randr + XCB_RANDR_SCREEN_CHANGE_NOTIFY), stale);
  x_.onEvent(static_cast<std::uint8_t>(randr + XCB_RANDR_NOTIFY), stale);
  // The only event for monitors that a user adds or removes with RandR requests (xrandr --setmonitor).
  x_.onEvent(XCB_CONFIGURE_NOTIFY, [this](const xcb_generic_event_t& event) {
    if (reinterpret_cast<const xcb_configure_notify_event_t&>(event).window == x_.root()) reading_.need();
  });
  x_.onEvent(XCB_PROPERTY_NOTIFY, [this](const xcb_generic_event_t& event) {
    propertyChanged(reinterpret_cast<const xcb_property_notify_event_t&>(event));
  });
  displays_ = read().value_or(displays_);
}

const std::vector<DisplayInfo>& X11Displays::current() {
  reading_.doNow();
  return displays_;
}

void X11Displays::propertyChanged(const xcb_property_notify_event_t& event) {
  const auto concerns = [&](const auto& atoms) {
    return std::ranges::any_of(atoms, [&](Atom atom) { return x_.atom(atom) == event.atom; });
  };
  const bool onRoot = event.window == x_.root() && concerns(changesOnRoot);
  const bool onPanel = std::ranges::find(panels_, event.window) != panels_.end() && concerns(changesOnPanel);
  if (onRoot || onPanel) reading_.need();
}

void X11Displays::refresh() {
  auto displays = read();
  if (!displays || *displays == displays_) return;
  displays_ = *std::move(displays);
  queue_.post([this] {
    if (changed_) changed_();
  });
}

std::optional<std::vector<DisplayInfo>> X11Displays::read() {
  Pending<xcb_randr_get_monitors_reply> monitors(x_.get(), xcb_randr_get_monitors(x_.get(), x_.root(), 1));
  Pending<xcb_get_geometry_reply> whole(x_.get(), xcb_get_geometry(x_.get(), x_.root()));
  const auto monitorsReply = monitors.collect();
  const auto wholeReply = whole.collect();
  if (!monitorsReply || !wholeReply) return std::nullopt;
  auto displays = monitorsIn(*monitorsReply);
  const auto struts =
      readStruts({0, 0, static_cast<double>(wholeReply->width), static_cast<double>(wholeReply->height)});
  for (auto& display : displays) display.visibleFrame = visibleFrame(display.frame, struts);
  return displays;
}

std::vector<Strut> X11Displays::readStruts(const Rect& desktop) {
  std::vector<StrutQuestions> asked;
  for (const auto window : managedWindows(x_)) {
    asked.push_back({window, PropertyRequest(x_.get(), window, x_.atom(Atom::netWmStrutPartial)),
                     PropertyRequest(x_.get(), window, x_.atom(Atom::netWmStrut))});
  }
  std::vector<Strut> result;
  std::vector<xcb_window_t> panels;
  for (auto& questions : asked) {
    const auto struts = strutsOf(questions.partial.numbers(), questions.whole.numbers(), desktop);
    if (struts.empty()) continue;
    result.insert(result.end(), struts.begin(), struts.end());
    panels.push_back(questions.window);
    constexpr std::uint32_t watch = XCB_EVENT_MASK_PROPERTY_CHANGE;
    if (std::ranges::find(panels_, questions.window) == panels_.end()) {
      xcb_change_window_attributes(x_.get(), questions.window, XCB_CW_EVENT_MASK, &watch);
    }
  }
  panels_ = std::move(panels);
  return result;
}

}  // namespace tilwin::x11
