#include "platform/x11/wire/ClientList.h"

#include <algorithm>

#include "platform/x11/wire/Property.h"

namespace tilwin::x11 {

std::vector<xcb_window_t> managedWindows(const X11Connection& x) {
  return PropertyRequest(x.get(), x.root(), x.atom(Atom::netClientList)).numbers();
}

std::vector<xcb_window_t> managedWindowsFromTheTop(const X11Connection& x) {
  PropertyRequest managed(x.get(), x.root(), x.atom(Atom::netClientList));
  PropertyRequest stacked(x.get(), x.root(), x.atom(Atom::netClientListStacking));
  auto bottomFirst = stacked.numbers();
  // xfwm4 adds the first window of a screen to the client list at once, but to the stacking list only when
  // the stacking order next changes. A window that is only in the client list is therefore new and on top.
  for (const auto window : managed.numbers()) {
    if (std::ranges::find(bottomFirst, window) == bottomFirst.end()) bottomFirst.push_back(window);
  }
  return {bottomFirst.rbegin(), bottomFirst.rend()};
}

}  // namespace tilwin::x11
