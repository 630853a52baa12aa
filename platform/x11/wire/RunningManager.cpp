#include "platform/x11/wire/RunningManager.h"

#include "platform/x11/wire/Property.h"

namespace tilwin::x11 {

xcb_window_t announcedManager(const X11Connection& x) {
  return PropertyRequest(x.get(), x.root(), x.atom(Atom::netSupportingWmCheck))
      .number()
      .value_or(XCB_WINDOW_NONE);
}

/// EWMH requires that the window named by the root also names itself. A property left behind by a window
/// manager that crashed fails this test.
bool windowManagerRuns(const X11Connection& x) {
  const auto window = announcedManager(x);
  return window != XCB_WINDOW_NONE &&
         PropertyRequest(x.get(), window, x.atom(Atom::netSupportingWmCheck)).number() == window;
}

}  // namespace tilwin::x11
