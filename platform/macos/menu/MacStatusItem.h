#pragma once

#import <AppKit/AppKit.h>

#include <optional>

#include "platform/macos/menu/StatusMenu.h"
#include "platform/macos/support/Held.h"
#include "platform/ports/StatusItem.h"

namespace tilwin::macos {

/// The icon in the menu bar, which exists from `install` until this is destroyed. Both mouse buttons open its
/// menu. Main thread only; the queue must exist as long as this does. Cannot fail: an icon for which the menu
/// bar has no room is merely not seen. Sources: NSStatusBar, NSStatusItem (button: macOS 10.10).
class MacStatusItem final : public StatusItem {
public:
  explicit MacStatusItem(MainQueue& queue) : queue_(queue) {}
  MacStatusItem(const MacStatusItem&) = delete;
  MacStatusItem& operator=(const MacStatusItem&) = delete;
  ~MacStatusItem() override;

  void install(const TemplateImage& image, MenuMaker makeMenu, ChoiceHandler onChoice) override;
  /// Does nothing before `install`.
  void setVisible(bool visible) override;

private:
  MainQueue& queue_;
  std::optional<StatusMenu> menu_;
  Held<NSStatusItem*> item_;
};

}  // namespace tilwin::macos
