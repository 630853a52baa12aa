#include "platform/x11/wire/ClientList.h"

#include <algorithm>
#include <cstddef>

#include "platform/x11/wire/Property.h"

namespace tilwin::x11 {

std::vector<xcb_window_t> managedWindows(const X11Connection& x) {
  return PropertyRequest(x.get(), x.root(), x.atom(Atom::netClientList), mostWindows).numbers();
}

std::vector<xcb_window_t> managedWindowsFromTheTop(const X11Connection& x) {
  PropertyRequest managed(x.get(), x.root(), x.atom(Atom::netClientList), mostWindows);
  PropertyRequest stacked(x.get(), x.root(), x.atom(Atom::netClientListStacking), mostWindows);
  auto bottomFirst = stacked.numbers();
  // xfwm4 adds the first window of a screen to the client list at once, but to the stacking list only when
  // the stacking order next changes. A window that is only in the client list is therefore new and on top.
  for (const auto window : managed.numbers()) {
    if (std::ranges::find(bottomFirst, window) == bottomFirst.end()) bottomFirst.push_back(window);
  }
  return {bottomFirst.rbegin(), bottomFirst.rend()};
}

std::vector<xcb_window_t> onThisWorkspace(const X11Connection& x, std::span<const xcb_window_t> windows) {
  constexpr std::uint32_t all = 0xffffffff;
  PropertyRequest present(x.get(), x.root(), x.atom(Atom::netCurrentDesktop));
  std::vector<PropertyRequest> asked;
  asked.reserve(windows.size());
  for (const auto window : windows) asked.emplace_back(x.get(), window, x.atom(Atom::netWmDesktop));
  const std::uint32_t here = present.number().value_or(all);
  std::vector<xcb_window_t> result;
  for (std::size_t i = 0; i < windows.size(); ++i) {
    const std::uint32_t workspace = asked[i].number().value_or(all);
    if (workspace == here || workspace == all || here == all) result.push_back(windows[i]);
  }
  return result;
}

}  // namespace tilwin::x11
