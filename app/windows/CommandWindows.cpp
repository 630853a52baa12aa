#include "app/windows/CommandWindows.h"

#include <utility>

namespace tilwin {

CommandWindows::CommandWindows(std::shared_ptr<DesktopWindows> windows) : windows_(std::move(windows)) {}

void CommandWindows::menuOpens() { held_ = windows_->lastFocusedWindow(); }

std::optional<WindowInfo> CommandWindows::focusedWindow() {
  if (running_ == 0) return windows_->focusedWindow();
  auto last = windows_->lastFocusedWindow();
  return last ? last : heldNow();
}

/// The window remembered when the menu opened, at its frame of this moment; nothing if it has been closed.
std::optional<WindowInfo> CommandWindows::heldNow() const {
  if (!held_) return std::nullopt;
  const auto frame = windows_->frame(held_->id);
  if (!frame) return std::nullopt;
  WindowInfo result = *held_;
  result.frame = *frame;
  return result;
}

}  // namespace tilwin
