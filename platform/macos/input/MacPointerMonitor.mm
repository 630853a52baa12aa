#include "platform/macos/input/MacPointerMonitor.h"

#import <AppKit/AppKit.h>

#include <utility>

#include "platform/macos/displays/MacScreens.h"
#include "platform/macos/support/Held.h"
#include "platform/ports/ScreenSpace.h"

namespace tilwin::macos {
namespace {

using SharedHandler = std::shared_ptr<const PointerMonitor::Handler>;

/// Removes the monitor. The monitor's block holds the handler weakly, as AppKit may already be about to call
/// it.
class MonitorToken final : public PointerMonitor::Token {
public:
  MonitorToken(id monitor, SharedHandler handler)
      : handler_(std::move(handler)), monitor_(retained(monitor)) {}
  MonitorToken(const MonitorToken&) = delete;
  MonitorToken& operator=(const MonitorToken&) = delete;
  ~MonitorToken() override { [NSEvent removeMonitor:monitor_.get()]; }

private:
  SharedHandler handler_;
  Held<id> monitor_;
};

SharedHandler shared(PointerMonitor::Handler handler) {
  return std::make_shared<const PointerMonitor::Handler>(std::move(handler));
}

void call(const std::weak_ptr<const PointerMonitor::Handler>& handler, PointerEvent event) {
  // Held here, as the handler may destroy its token.
  if (const auto held = handler.lock()) (*held)(event);
}

std::unique_ptr<PointerMonitor::Token> token(id monitor, SharedHandler handler) {
  if (monitor == nil) return nullptr;
  return std::make_unique<MonitorToken>(monitor, std::move(handler));
}

/// The values of `PointerEvent` are those of the mask.
NSEventMask mask(PointerEvent events) { return static_cast<NSEventMask>(events); }

}  // namespace

std::unique_ptr<PointerMonitor::Token> MacPointerMonitor::addGlobal(PointerEvent events, Handler handler) {
  SharedHandler held = shared(std::move(handler));
  const std::weak_ptr called = held;
  id const monitor = [NSEvent addGlobalMonitorForEventsMatchingMask:mask(events)
                                                            handler:^(NSEvent*) {
                                                              call(called, events);
                                                            }];
  return token(monitor, std::move(held));
}

std::unique_ptr<PointerMonitor::Token> MacPointerMonitor::addLocal(PointerEvent events, Handler handler) {
  SharedHandler held = shared(std::move(handler));
  const std::weak_ptr called = held;
  id const monitor = [NSEvent addLocalMonitorForEventsMatchingMask:mask(events)
                                                           handler:^(NSEvent* event) {
                                                             call(called, events);
                                                             return event;
                                                           }];
  return token(monitor, std::move(held));
}

std::unique_ptr<PointerMonitor::Token> MacPointerMonitor::addCancelled(std::function<void()> /*handler*/) {
  return nullptr;
}

Point MacPointerMonitor::position() {
  const NSPoint pointer = [NSEvent mouseLocation];
  return fromScreen(Point{pointer.x, pointer.y}, firstScreenHeight());
}

}  // namespace tilwin::macos
