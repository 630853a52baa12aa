#include "tests/macos/menu/DialogUser.h"

#include <utility>

#include "tests/macos/menu/Keys.h"
#include "tests/macos/menu/OnScreen.h"

namespace tilwin::macos {

using namespace std::chrono_literals;

DialogUser::DialogUser(MainQueue& queue, contract::DialogsWorld::Steps steps, std::set<NSWindow*>& attended)
    : steps_(std::move(steps)), attended_(attended), timer_(queue.repeat(5ms, 0ms, [this] { look(); })) {}

void DialogUser::look() {
  NSWindow* const front = [NSApp modalWindow];
  if (steps_ && front != nil && !attended_.contains(front)) {
    attend(front);
  } else if (dialog_ && !steps_) {
    watch();
  }
}

void DialogUser::attend(NSWindow* dialog) {
  const bool isReady = isOnScreen(dialog) && [dialog isKeyWindow];
  const bool isLate = desktop::Clock::now() > until_;
  if (!isReady && !isLate) return;
  EXPECT_TRUE(isReady) << "the dialog does not get the focus";
  attended_.insert(dialog);
  dialog_ = retained(dialog);
  const auto steps = std::exchange(steps_, nullptr);
  if (isReady) {
    steps();
    until_ = desktop::Clock::now() + desktop::answerTimeout;
  }
}

void DialogUser::watch() {
  const bool isLate = desktop::Clock::now() > until_;
  if ([dialog_.get() isVisible] && !isLate) return;
  if (isLate) {
    ADD_FAILURE() << "the dialog stays open";
    [NSApp stopModalWithCode:NSModalResponseAbort];
    press(escapeKey);
  }
  attended_.erase(dialog_.get());
  dialog_ = {};
}

}  // namespace tilwin::macos
