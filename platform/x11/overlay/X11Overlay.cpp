#include "platform/x11/overlay/X11Overlay.h"

#include <cmath>
#include <string>

namespace tilwin::x11 {

namespace {

int screenNumberOf(const X11Connection& x) {
  auto screens = xcb_setup_roots_iterator(xcb_get_setup(x.get()));
  int number = 0;
  for (; screens.data->root != x.root() && screens.rem > 1; ++number) xcb_screen_next(&screens);
  return number;
}

xcb_intern_atom_cookie_t askForCompositor(const X11Connection& x) {
  const auto name = "_NET_WM_CM_S" + std::to_string(screenNumberOf(x));
  return xcb_intern_atom(x.get(), 0, static_cast<std::uint16_t>(name.size()), name.data());
}

/// Rounds the edges, not the sizes, to the nearest pixel, so that adjacent frames still touch.
PixelRect toPixels(const Rect& frame) {
  const auto nearest = [](double value) { return static_cast<int>(std::lround(value)); };
  const int left = nearest(frame.x);
  const int top = nearest(frame.y);
  return {left, top, nearest(frame.maxX()) - left, nearest(frame.maxY()) - top};
}

}  // namespace

X11Overlay::X11Overlay(X11Connection& x, AccentColour accent)
    : x_(x), accent_(accent), compositorAsked_(x.get(), askForCompositor(x)) {
  x_.onEvent(XCB_EXPOSE, [this](const xcb_generic_event_t& event) {
    const auto& expose = reinterpret_cast<const xcb_expose_event_t&>(event);
    if (!window_ || expose.window != window_->id() || expose.count > 0) return;
    window_->draw();
    x_.flush();
  });
}

X11Overlay::~X11Overlay() {
  window_.reset();
  x_.flush();
}

bool X11Overlay::isComposited() {
  if (const auto reply = compositorAsked_.collect()) compositor_ = reply->atom;
  const auto owner =
      Pending<xcb_get_selection_owner_reply>(x_.get(), xcb_get_selection_owner(x_.get(), compositor_))
          .collect();
  return owner && owner->owner != XCB_NONE;
}

void X11Overlay::showAt(const Rect& frame) {
  const PixelRect at = toPixels(frame);
  if (at.width < 1 || at.height < 1) return hide();
  const auto look = isComposited() ? OverlayWindow::Look::translucent : OverlayWindow::Look::outline;
  if (!window_ || window_->look() != look) {
    window_.reset();
    window_ = std::make_unique<OverlayWindow>(x_, accent_, look);
  }
  window_->show(at);
  x_.flush();
}

void X11Overlay::hide() {
  if (!window_) return;
  window_->hide();
  x_.flush();
}

}  // namespace tilwin::x11
