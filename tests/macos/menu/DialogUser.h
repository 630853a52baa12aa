#pragma once

#import <AppKit/AppKit.h>

#include <memory>
#include <set>

#include "platform/macos/support/Held.h"
#include "tests/contract/DialogsContract.h"
#include "tests/desktop/harness/Waiting.h"

namespace tilwin::macos {

/// Waits for the next dialog, carries out the steps and watches that it closes.
class DialogUser {
public:
  /// `attended` are the open dialogs that have a user.
  DialogUser(MainQueue& queue, contract::DialogsWorld::Steps steps, std::set<NSWindow*>& attended);

private:
  void look();
  void attend(NSWindow* dialog);
  void watch();

  contract::DialogsWorld::Steps steps_;
  std::set<NSWindow*>& attended_;
  Held<NSWindow*> dialog_;
  desktop::Clock::time_point until_ = desktop::Clock::now() + desktop::answerTimeout;
  std::unique_ptr<MainQueue::Repetition> timer_;
};

}  // namespace tilwin::macos
