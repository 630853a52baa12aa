#include "platform/macos/input/MacPointerMonitor.h"

#import <AppKit/AppKit.h>

#include <map>
#include <optional>
#include <utility>

#include "platform/macos/displays/MacScreens.h"
#include "platform/macos/support/Held.h"
#include "platform/pointer/PacedDrag.h"
#include "platform/ports/Listeners.h"
#include "platform/ports/ScreenSpace.h"

namespace tilwin::macos {
namespace {

using Token = PointerMonitor::Token;

/// Removes the monitor of AppKit.
class Installed {
public:
  explicit Installed(id monitor) : monitor_(retained(monitor)) {}
  Installed(const Installed&) = delete;
  Installed& operator=(const Installed&) = delete;
  ~Installed() { [NSEvent removeMonitor:monitor_.get()]; }

private:
  Held<id> monitor_;
};

/// One handler, and the monitor of AppKit that it shares with others of its kind.
class KeptHandler final : public Token {
public:
  KeptHandler(std::unique_ptr<Token> handler, std::shared_ptr<const Installed> monitor)
      : handler_(std::move(handler)), monitor_(std::move(monitor)) {}

private:
  std::unique_ptr<Token> handler_;
  std::shared_ptr<const Installed> monitor_;
};

/// The values of `PointerEvent` are those of the mask.
NSEventMask mask(PointerEvent events) { return static_cast<NSEventMask>(events); }

Point onDesktop(NSPoint point) { return fromScreen(Point{point.x, point.y}, firstScreenHeight()); }

/// Where the pointer was then: it may have gone on. An event without a window tells its place on the screen.
Point placeOf(NSEvent* event) {
  return onDesktop([event window] == nil ? [event locationInWindow] : [NSEvent mouseLocation]);
}

}  // namespace

/// What the monitors of AppKit report to; they hold it weakly, as AppKit may already be about to call one
/// that is removed.
class MacPointerMonitor::Mouse : public std::enable_shared_from_this<Mouse> {
public:
  enum class Reach { global, local };

  explicit Mouse(MainQueue& queue)
      : drag_(queue, [this] {
          tell({dragged_, PointerEvent::leftMouseDragged});
        }) {}

  std::unique_ptr<Token> add(Reach reach, PointerEvent events, Handler handler) {
    Kind& kind = kinds_[{reach, events}];
    auto monitor = kind.monitor.lock();
    if (!monitor) {
      id const installed = reach == Reach::global ? installGlobal(events) : installLocal(events);
      if (installed == nil) return nullptr;
      kind.monitor = monitor = std::make_shared<const Installed>(installed);
    }
    return std::make_unique<KeptHandler>(kind.handlers.add(std::move(handler)), std::move(monitor));
  }

  [[nodiscard]] std::optional<Point> place() const { return drag_.place(); }

private:
  using KindName = std::pair<Reach, PointerEvent>;
  struct Kind {
    Listeners<Token, PointerEvent> handlers;
    std::weak_ptr<const Installed> monitor;
  };

  id installGlobal(PointerEvent events) {
    const std::weak_ptr mouse = weak_from_this();
    return [NSEvent addGlobalMonitorForEventsMatchingMask:mask(events)
                                                  handler:^(NSEvent* event) {
                                                    report(mouse, {Reach::global, events}, event);
                                                  }];
  }

  id installLocal(PointerEvent events) {
    const std::weak_ptr mouse = weak_from_this();
    return [NSEvent addLocalMonitorForEventsMatchingMask:mask(events)
                                                 handler:^(NSEvent* event) {
                                                   report(mouse, {Reach::local, events}, event);
                                                   return event;
                                                 }];
  }

  static void report(const std::weak_ptr<Mouse>& mouse, const KindName& kind, NSEvent* event) {
    // Held here, as a handler may remove the monitor and with it what its block holds.
    if (const auto held = mouse.lock()) held->happened(kind, placeOf(event));
  }

  void happened(const KindName& kind, Point at) {
    const auto tellIt = [this, kind] { tell(kind); };
    if (kind.second == PointerEvent::leftMouseUp) return drag_.release(at, tellIt);
    dragged_ = kind.first;
    if (kind.second == PointerEvent::leftMouseDown) return drag_.press(at, tellIt);
    drag_.move(at);
  }

  void tell(const KindName& kind) { kinds_[kind].handlers.tell(kind.second); }

  std::map<KindName, Kind> kinds_;
  Reach dragged_ = Reach::global;  ///< whose events the present drag consists of
  PacedDrag drag_;
};

MacPointerMonitor::MacPointerMonitor(MainQueue& queue) : mouse_(std::make_shared<Mouse>(queue)) {}

std::unique_ptr<Token> MacPointerMonitor::addGlobal(PointerEvent events, Handler handler) {
  return mouse_->add(Mouse::Reach::global, events, std::move(handler));
}

std::unique_ptr<Token> MacPointerMonitor::addLocal(PointerEvent events, Handler handler) {
  return mouse_->add(Mouse::Reach::local, events, std::move(handler));
}

std::unique_ptr<Token> MacPointerMonitor::addCancelled(std::function<void()> /*handler*/) { return nullptr; }

Point MacPointerMonitor::position() {
  const auto place = mouse_->place();
  return place ? *place : onDesktop([NSEvent mouseLocation]);
}

}  // namespace tilwin::macos
