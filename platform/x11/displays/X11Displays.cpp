#include "platform/x11/displays/X11Displays.h"

#include <xcb/randr.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "platform/x11/displays/UnlistedWindows.h"
#include "platform/x11/wire/ClientList.h"
#include "platform/x11/wire/Property.h"
#include "platform/x11/wire/Reply.h"

namespace tilwin::x11 {

namespace {

constexpr MainQueue::Seconds soon{0.02};

constexpr std::array changesOnRoot{Atom::netClientList, Atom::netCurrentDesktop, Atom::netSupported,
                                   Atom::netWorkarea};
constexpr std::array changesOnPanel{Atom::netWmStrut, Atom::netWmStrutPartial};
constexpr std::uint32_t panelEvents = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;

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

}  // namespace

/// The requests for the struts of one window; `area` is set for those that are not listed.
struct X11Displays::StrutQuestions {
  xcb_window_t window;
  std::optional<Rect> area;
  PropertyRequest partial;
  PropertyRequest whole;
};

std::vector<X11Displays::StrutQuestions> X11Displays::askForStruts(std::span<const xcb_window_t> listed,
                                                                   const UnlistedWindows& unlisted) const {
  std::vector<StrutQuestions> asked;
  const auto ask = [&](xcb_window_t window, std::optional<Rect> area) {
    asked.push_back({window, area, PropertyRequest(x_.get(), window, x_.atom(Atom::netWmStrutPartial)),
                     PropertyRequest(x_.get(), window, x_.atom(Atom::netWmStrut))});
  };
  for (const auto window : listed) ask(window, std::nullopt);
  for (const auto& [window, area] : unlisted.windows) ask(window, area);
  return asked;
}

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
  listenToPanels();
  displays_ = read().value_or(displays_);
}

/// Panels that the window manager does not list may come, go and come back without a change on the root.
void X11Displays::listenToPanels() {
  const auto stale = [this](xcb_window_t window) {
    if (panels_.contains(window)) reading_.need();
  };
  x_.onEvent(XCB_MAP_NOTIFY, [stale](const xcb_generic_event_t& event) {
    stale(reinterpret_cast<const xcb_map_notify_event_t&>(event).window);
  });
  x_.onEvent(XCB_UNMAP_NOTIFY, [stale](const xcb_generic_event_t& event) {
    stale(reinterpret_cast<const xcb_unmap_notify_event_t&>(event).window);
  });
  x_.onEvent(XCB_DESTROY_NOTIFY, [this](const xcb_generic_event_t& event) {
    // Its number may soon be that of another one.
    if (panels_.erase(reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window) > 0) reading_.need();
  });
}

void X11Displays::askAhead() { children_.emplace(x_.get(), xcb_query_tree(x_.get(), x_.root())); }

/// Whether the root has got a child since the last reading, as far as was asked ahead.
bool X11Displays::hasNewWindow() {
  auto asked = std::exchange(children_, std::nullopt);
  if (!asked) return false;
  const auto isNew = [this](xcb_window_t window) { return !onRoot_.contains(window); };
  return std::ranges::any_of(childrenIn(*asked), isNew);
}

const std::vector<DisplayInfo>& X11Displays::current() {
  if (hasNewWindow()) reading_.need();
  reading_.doNow();
  return displays_;
}

void X11Displays::propertyChanged(const xcb_property_notify_event_t& event) {
  const auto concerns = [&](const auto& atoms) {
    return std::ranges::any_of(atoms, [&](Atom atom) { return x_.atom(atom) == event.atom; });
  };
  const bool onRoot = event.window == x_.root() && concerns(changesOnRoot);
  const bool onPanel = panels_.contains(event.window) && concerns(changesOnPanel);
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
  // One round trip for all. The work area comes before the size of the screen, lest a new one be taken for
  // that of the old screen.
  PropertyRequest workspace(x_.get(), x_.root(), x_.atom(Atom::netCurrentDesktop));
  PropertyRequest workArea(x_.get(), x_.root(), x_.atom(Atom::netWorkarea));
  Pending<xcb_randr_get_monitors_reply> monitors(x_.get(), xcb_randr_get_monitors(x_.get(), x_.root(), 1));
  Pending<xcb_get_geometry_reply> whole(x_.get(), xcb_get_geometry(x_.get(), x_.root()));
  PropertyRequest clients(x_.get(), x_.root(), x_.atom(Atom::netClientList), mostWindows);
  const auto monitorsReply = monitors.collect();
  const auto wholeReply = whole.collect();
  if (!monitorsReply || !wholeReply) return std::nullopt;
  auto displays = monitorsIn(*monitorsReply);
  const Rect desktop{0, 0, static_cast<double>(wholeReply->width), static_cast<double>(wholeReply->height)};
  const auto listed = clients.numbers();
  const auto unlisted = unlistedWindows(x_, listed);
  onRoot_ = {unlisted.onRoot.begin(), unlisted.onRoot.end()};
  std::vector<Rect> frames;
  std::ranges::transform(displays, std::back_inserter(frames), &DisplayInfo::frame);
  const auto struts = readStruts(askForStruts(listed, unlisted), desktop, frames);
  for (auto& display : displays) display.visibleFrame = visibleFrame(display.frame, struts);
  // A manager that does not use the property leaves in it what the one before wrote there.
  if (const auto free = workAreaOf(workArea.numbers(), workspace.number().value_or(0));
      free && x_.managerSupports(Atom::netWorkarea)) {
    workArea_.apply(*free, desktop, unlisted.areas, displays);
  }
  return displays;
}

std::vector<Strut> X11Displays::readStruts(std::vector<StrutQuestions> asked, const Rect& desktop,
                                           std::span<const Rect> monitors) {
  std::vector<Strut> result;
  for (auto& questions : asked) {
    const auto struts = strutsOf(questions.partial.numbers(), questions.whole.numbers(), desktop);
    for (const auto& told : struts) {
      result.push_back(questions.area ? strutSeenAt(*questions.area, told, monitors) : told);
    }
    if (struts.empty() || !panels_.insert(questions.window).second) continue;
    x_.masks().select(this, questions.window, panelEvents);
    reading_.need();  // it may have changed just before
  }
  return result;
}

}  // namespace tilwin::x11
