#pragma once

#include "platform/macos/support/NotificationObserver.h"
#include "platform/ports/ScreenChanges.h"

namespace tilwin::macos {

/// Changes of the screens by AppKit's notification (NSApplicationDidChangeScreenParametersNotification, macOS
/// 10.0). AppKit posts it on the main thread and only while the event loop runs.
class MacScreenChanges final : public ScreenChanges {
public:
  MacScreenChanges();

  void onChange(std::function<void()> handler) override;

private:
  std::function<void()> handler_;
  NotificationObserver observer_;
};

}  // namespace tilwin::macos
