#pragma once

#include <memory>
#include <utility>

#include "platform/ports/SettingsWindow.h"

namespace tilwin::macos {

class SettingsFrame;

/// The settings window with AppKit's views. The shared NSApplication must exist while it is used; on the main
/// thread. A closed window is released at the end of the event that closed it. Cannot fail.
/// Sources: NSWindow, NSView, NSControl.
class MacSettingsWindow final : public SettingsWindow {
public:
  MacSettingsWindow() = default;
  MacSettingsWindow(const MacSettingsWindow&) = delete;
  MacSettingsWindow& operator=(const MacSettingsWindow&) = delete;
  ~MacSettingsWindow() override;

  void onEvent(EventHandler handler) override { handler_ = std::move(handler); }
  void show(const FormModel& form) override;
  void update(const FormModel& form) override;
  void close() override;
  [[nodiscard]] bool isOpen() const override { return frame_ != nullptr; }

private:
  EventHandler handler_;
  std::shared_ptr<SettingsFrame> frame_;
};

}  // namespace tilwin::macos
