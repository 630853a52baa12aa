#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "platform/ports/DesktopWindows.h"

namespace tilwin {

/// The desktop's windows, as a `SnapController` sees them. While a command of the menu runs, the focused
/// window is the one that had the focus before the menu or a dialog of the command took it. Main thread only.
class CommandWindows final : public WindowProvider {
public:
  explicit CommandWindows(std::shared_ptr<DesktopWindows> windows);

  /// To be called when the menu opens. Remembers the window that has the focus, for desktops that forget it
  /// when a dialog takes the focus.
  void menuOpens();
  /// A command runs as long as this lives.
  class Command {
  public:
    explicit Command(CommandWindows& windows) : windows_(windows) { ++windows_.running_; }
    Command(const Command&) = delete;
    Command& operator=(const Command&) = delete;
    ~Command() { --windows_.running_; }

  private:
    CommandWindows& windows_;
  };

  [[nodiscard]] std::vector<DisplayInfo> displays() override { return windows_->displays(); }
  [[nodiscard]] std::optional<WindowInfo> focusedWindow() override;
  [[nodiscard]] std::vector<WindowInfo> allWindows() override { return windows_->allWindows(); }

private:
  bool applyFrame(std::int64_t id, const Rect& frame) override { return windows_->setFrame(id, frame); }
  bool applyRestore(std::int64_t id, const Rect& frame) override { return windows_->restoreFrame(id, frame); }
  [[nodiscard]] std::optional<WindowInfo> heldNow() const;

  std::shared_ptr<DesktopWindows> windows_;
  std::optional<WindowInfo> held_;
  int running_ = 0;
};

}  // namespace tilwin
