#include "platform/x11/wire/X11WindowManager.h"

#include "platform/x11/wire/Property.h"
#include "platform/x11/wire/RunningManager.h"

namespace tilwin::x11 {
namespace {

constexpr MainQueue::Seconds afterStart{1};

/// A window manager that does not has only just started.
bool saysWhatItSupports(const X11Connection& x) {
  return PropertyRequest(x.get(), x.root(), x.atom(Atom::netSupported)).number().has_value();
}

}  // namespace

X11WindowManager::X11WindowManager(X11Connection& x, MainQueue& queue, SystemLog& log)
    : x_(x), log_(log), check_(queue, afterStart, [this] { checkNow(); }) {
  x_.onEvent(XCB_PROPERTY_NOTIFY, [this](const xcb_generic_event_t& event) {
    const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(event);
    if (change.window == x_.root() && change.atom == x_.atom(Atom::netSupportingWmCheck)) check_.need();
  });
  // The next manager may announce itself by a window with the same number.
  x_.onEvent(XCB_DESTROY_NOTIFY, [this](const xcb_generic_event_t& event) {
    const auto closed = reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window;
    if (closed == noticed_) noticed_ = XCB_WINDOW_NONE;
  });
}

bool X11WindowManager::noticeManager() {
  const auto named = announcedManager(x_);
  if (named == noticed_) return false;
  forgetManager();
  noticed_ = named;
  if (noticed_ != XCB_WINDOW_NONE) x_.masks().select(this, noticed_, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
  return true;
}

void X11WindowManager::forgetManager() {
  const auto before = std::exchange(noticed_, XCB_WINDOW_NONE);
  if (before != XCB_WINDOW_NONE) x_.masks().select(this, before, XCB_EVENT_MASK_NO_EVENT);
}

void X11WindowManager::whenRunning(std::function<void()> task) {
  noticeManager();
  const bool runs = windowManagerRuns(x_);
  if (runs && saysWhatItSupports(x_)) return task();
  whenRunning_ = std::move(task);
  if (runs) return check_.need();
  log_.write("Tilwin: no EWMH window manager runs yet; waiting for one");
}

void X11WindowManager::checkNow() {
  if (!noticeManager() && !whenRunning_) return;
  if (!windowManagerRuns(x_)) return forgetManager();
  if (const auto waiting = std::exchange(whenRunning_, nullptr)) return waiting();
  if (onStart_) onStart_();
}

}  // namespace tilwin::x11
