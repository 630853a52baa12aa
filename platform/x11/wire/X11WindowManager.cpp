#include "platform/x11/wire/X11WindowManager.h"

#include "platform/x11/wire/OfferedByServer.h"

namespace tilwin::x11 {
namespace {

constexpr MainQueue::Seconds afterStart{1};

}  // namespace

X11WindowManager::X11WindowManager(X11Connection& x, MainQueue& queue, SystemLog& log)
    : x_(x), log_(log), check_(queue, afterStart, [this] { checkNow(); }) {
  x_.onEvent(XCB_PROPERTY_NOTIFY, [this](const xcb_generic_event_t& event) {
    const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
    if (change.window == x_.root() && change.atom == x_.atom(Atom::netSupportingWmCheck)) check_.need();
  });
}

void X11WindowManager::whenRunning(std::function<void()> task) {
  const auto offered = offeredBy(x_);
  if (offered.windowManager && offered.moveResize) return task();
  whenRunning_ = std::move(task);
  if (offered.windowManager) return check_.need();
  log_.write("Tilwin: no EWMH window manager runs yet; waiting for one");
}

void X11WindowManager::checkNow() {
  const auto offered = offeredBy(x_);
  if (!offered.windowManager) return;
  if (const auto complaint = missing(offered)) log_.write("Tilwin: " + *complaint);
  if (const auto waiting = std::exchange(whenRunning_, nullptr)) return waiting();
  if (onStart_) onStart_();
}

}  // namespace tilwin::x11
