#include "tests/macos/desktop/EventLoop.h"

#import <AppKit/AppKit.h>

#include <algorithm>
#include <memory>

#include "platform/macos/support/Held.h"

namespace tilwin::macos {
namespace {

/// Waits for at most this long for one event, and handles it; false if there is none.
bool handleOneEvent(desktop::Milliseconds patience) {
  const AutoreleasePool pool;
  NSDate* const until = [NSDate dateWithTimeIntervalSinceNow:std::chrono::duration<double>(patience).count()];
  NSEvent* const event = [NSApp nextEventMatchingMask:NSAnyEventMask
                                            untilDate:until
                                               inMode:NSDefaultRunLoopMode
                                              dequeue:YES];
  if (event != nil) [NSApp sendEvent:event];
  return event != nil;
}

/// In a pool of its own: [NSApp windows] would keep closed windows alive.
bool holds(const std::function<bool()>& condition) {
  const AutoreleasePool pool;
  return condition();
}

}  // namespace

bool runEventLoopUntil(const std::function<bool()>& condition, desktop::Milliseconds patience) {
  const auto until = desktop::Clock::now() + patience;
  while (!holds(condition)) {
    const auto left = std::chrono::duration_cast<desktop::Milliseconds>(until - desktop::Clock::now());
    if (left <= desktop::Milliseconds{0}) return false;
    handleOneEvent(std::min(left, desktop::Milliseconds{5}));
  }
  return true;
}

bool finishTasks(MainQueue& queue) {
  const auto hasRun = std::make_shared<bool>(false);
  queue.post([hasRun] { *hasRun = true; });
  const bool isDone = runEventLoopUntil([hasRun] { return *hasRun; });
  while (handleOneEvent(desktop::Milliseconds{0})) {
  }
  return isDone;
}

}  // namespace tilwin::macos
