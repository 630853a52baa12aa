#include "platform/simulated/SimulatedPointer.h"

#include <algorithm>
#include <utility>

namespace tilwin {

struct SimulatedPointer::Installed {
  Monitor kind;
  std::function<void()> tell;
};

/// Owns the monitor; the pointer holds it weakly.
class SimulatedPointer::KeptMonitor : public Token {
public:
  explicit KeptMonitor(std::shared_ptr<const Installed> installed) : installed_(std::move(installed)) {}

private:
  std::shared_ptr<const Installed> installed_;
};

void SimulatedPointer::paceBy(MainQueue& queue) {
  drag_.emplace(queue, [this] { tell({Reach::global, PointerEvent::leftMouseDragged}); });
}

void SimulatedPointer::press(Point at) {
  position_ = at;
  isDown_ = true;
  const auto tellPress = [this] { tell({Reach::global, PointerEvent::leftMouseDown}); };
  drag_ ? drag_->press(at, tellPress) : tellPress();
}

void SimulatedPointer::drag(Point to) {
  position_ = to;
  if (!isDown_) return;
  drag_ ? drag_->move(to) : tell({Reach::global, PointerEvent::leftMouseDragged});
}

void SimulatedPointer::release() { tellRelease(Reach::global); }

void SimulatedPointer::releaseInThisProgram() { tellRelease(Reach::local); }

void SimulatedPointer::tellRelease(Reach reach) {
  if (!std::exchange(isDown_, false)) return;
  const auto tellIt = [this, reach] { tell({reach, PointerEvent::leftMouseUp}); };
  drag_ ? drag_->release(position_, tellIt) : tellIt();
}

void SimulatedPointer::cancel() {
  if (isDown_) tell({Reach::cancelled, std::nullopt});
}

std::vector<SimulatedPointer::Monitor> SimulatedPointer::monitors() const {
  std::vector<Monitor> result;
  for (const auto& each : installed_) {
    if (const auto installed = each.lock()) result.push_back(installed->kind);
  }
  return result;
}

std::unique_ptr<PointerMonitor::Token> SimulatedPointer::addGlobal(PointerEvent events, Handler handler) {
  return install({Reach::global, events}, [handler = std::move(handler), events] { handler(events); });
}

std::unique_ptr<PointerMonitor::Token> SimulatedPointer::addLocal(PointerEvent events, Handler handler) {
  return install({Reach::local, events}, [handler = std::move(handler), events] { handler(events); });
}

std::unique_ptr<PointerMonitor::Token> SimulatedPointer::addCancelled(std::function<void()> handler) {
  return install({Reach::cancelled, std::nullopt}, std::move(handler));
}

std::unique_ptr<PointerMonitor::Token> SimulatedPointer::install(const Monitor& kind,
                                                                 std::function<void()> tell) {
  if (std::find(refused_.begin(), refused_.end(), kind) != refused_.end()) return nullptr;
  auto installed = std::make_shared<const Installed>(Installed{kind, std::move(tell)});
  std::erase_if(installed_, [](const auto& each) { return each.expired(); });
  installed_.push_back(installed);
  return std::make_unique<KeptMonitor>(std::move(installed));
}

void SimulatedPointer::tell(const Monitor& kind) {
  // A copy, because a handler may add and remove monitors.
  const auto monitors = installed_;
  for (const auto& each : monitors) {
    const auto installed = each.lock();
    if (installed && installed->kind == kind) installed->tell();
  }
}

}  // namespace tilwin
