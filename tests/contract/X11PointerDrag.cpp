#include "tests/contract/X11PointerDrag.h"

#include <cstdlib>

namespace tilwin::x11 {

X11PointerDrag::X11PointerDrag() {
  setenv("DISPLAY", session_.server().display().c_str(), 1);
  x_.emplace(log_);
  held_.emplace(*x_);
  pointer_.emplace(*x_, *held_, queue_);
  queue_.watch(x_->fileDescriptor(), [this] { x_->dispatch(); });
  queue_.beforeEachSleep([this] { return x_->dispatchQueued(); });
}

std::unique_ptr<PointerMonitor::Token> X11PointerDrag::onMoves(const std::function<void()>& handler) {
  auto token = pointer_->addGlobal(PointerEvent::leftMouseDragged, [handler](PointerEvent) { handler(); });
  (void)pointer_->position();
  return token;
}

void X11PointerDrag::arrive() {
  (void)pointer_->position();
  x_->dispatchQueued();
  (void)pointer_->position();
}

}  // namespace tilwin::x11
