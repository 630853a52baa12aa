#pragma once

#include <memory>

#include "platform/ports/MainQueue.h"
#include "platform/ports/PointerMonitor.h"

namespace tilwin::macos {

/// The left mouse button by the event monitors of AppKit (NSEvent, macOS 10.6), which need no permission for
/// events of the mouse. Handlers are called on the main thread, by the event loop. Main thread only.
class MacPointerMonitor final : public PointerMonitor {
public:
  /// The queue must outlive this.
  explicit MacPointerMonitor(MainQueue& queue);

  [[nodiscard]] std::unique_ptr<Token> addGlobal(PointerEvent events, Handler handler) override;
  /// The windows of this program receive the event all the same, and at once.
  [[nodiscard]] std::unique_ptr<Token> addLocal(PointerEvent events, Handler handler) override;
  /// Null: a window that is dragged by its title bar stays with the pointer until the button comes up,
  /// whatever key is pressed.
  [[nodiscard]] std::unique_ptr<Token> addCancelled(std::function<void()> handler) override;

  [[nodiscard]] Point position() override;

private:
  class Mouse;

  std::shared_ptr<Mouse> mouse_;
};

}  // namespace tilwin::macos
