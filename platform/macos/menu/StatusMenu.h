#pragma once

#import <AppKit/AppKit.h>

#include <memory>
#include <optional>

#include "platform/macos/support/Held.h"
#include "platform/ports/MainQueue.h"
#include "platform/ports/StatusItem.h"

/// The delegate of a menu: passes AppKit's calls on to functions. A menu does not own its delegate.
@interface TWMenuDelegate : NSObject {
@public
  std::function<void()> onNeedsUpdate;
  std::function<void()> onOpen;
  std::function<void()> onClose;
}
@end

namespace tilwin::macos {

/// A menu that is made anew each time it opens and reports a choice once it has closed, as a task of the
/// queue. Main thread only. Choices that are still to be reported are dropped with this, which leaves the
/// menu empty. The queue must exist as long as this does. Sources: NSMenu, NSMenuDelegate (menuNeedsUpdate:
/// macOS 10.3, menuWillOpen: and menuDidClose: 10.5).
class StatusMenu {
public:
  StatusMenu(MainQueue& queue, StatusItem::MenuMaker makeMenu, StatusItem::ChoiceHandler onChoice);
  StatusMenu(const StatusMenu&) = delete;
  StatusMenu& operator=(const StatusMenu&) = delete;
  ~StatusMenu();

  /// Owned by this; whoever keeps it retains it.
  [[nodiscard]] NSMenu* menu() const { return menu_.get(); }

private:
  void draw();
  void reportOnceClosed();

  MainQueue& queue_;
  StatusItem::MenuMaker makeMenu_;
  /// Tasks that wait hold this weakly.
  std::shared_ptr<StatusItem::ChoiceHandler> onChoice_;
  Held<TWMenuDelegate*> delegate_;
  Held<NSMenu*> menu_;
  bool isDrawing_ = false;
  bool isOpen_ = false;
  std::optional<MenuChoice> chosen_;
};

}  // namespace tilwin::macos
