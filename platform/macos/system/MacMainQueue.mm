#include "platform/macos/system/MacMainQueue.h"

#import <AppKit/AppKit.h>

#include <chrono>
#include <utility>

#include "platform/macos/support/Action.h"
#include "platform/macos/support/Held.h"
#include "platform/macos/support/RunLoopModes.h"

namespace tilwin::macos {
namespace {

/// The event loop owns the timer until it is invalidated.
NSTimer* startTimer(MainQueue::Seconds interval, bool repeats, MainQueue::Task task) {
  const auto target = action([task = std::move(task)](id) { task(); });
  NSTimer* const timer = [NSTimer timerWithTimeInterval:interval.count()
                                                 target:target.get()
                                               selector:@selector(perform:)
                                               userInfo:nil
                                                repeats:repeats];
  for (NSString* mode in everyRunLoopMode()) [[NSRunLoop mainRunLoop] addTimer:timer forMode:mode];
  return timer;
}

class TimerRepetition final : public MainQueue::Repetition {
public:
  TimerRepetition(MainQueue::Seconds interval, MainQueue::Seconds tolerance, MainQueue::Task task)
      : timer_(retained(startTimer(interval, true, std::move(task)))) {
    [timer_.get() setTolerance:tolerance.count()];
  }
  TimerRepetition(const TimerRepetition&) = delete;
  TimerRepetition& operator=(const TimerRepetition&) = delete;
  ~TimerRepetition() override { [timer_.get() invalidate]; }

private:
  Held<NSTimer*> timer_;
};

/// The event loop looks whether it has been stopped only after an event.
void wakeEventLoop() {
  NSEvent* const event = [NSEvent otherEventWithType:NSEventTypeApplicationDefined
                                            location:NSZeroPoint
                                       modifierFlags:0
                                           timestamp:0
                                        windowNumber:0
                                             context:nil
                                             subtype:0
                                               data1:0
                                               data2:0];
  [NSApp postEvent:event atStart:NO];
}

}  // namespace

MacMainQueue::MacMainQueue()
    : self_(std::make_shared<MacMainQueue*>(this)),
      termination_([NSNotificationCenter defaultCenter], NSApplicationWillTerminateNotification,
                   [this] { finish(); }) {}

void MacMainQueue::post(Task task) {
  const auto target = action([queue = std::weak_ptr(self_), task = std::move(task)](id) {
    if (!queue.expired()) task();
  });
  [target.get() performSelectorOnMainThread:@selector(perform:)
                                 withObject:nil
                              waitUntilDone:NO
                                      modes:everyRunLoopMode()];
}

void MacMainQueue::postAfter(Seconds delay, Task task) {
  startTimer(delay, false, [queue = std::weak_ptr(self_), task = std::move(task)] {
    if (!queue.expired()) task();
  });
}

std::unique_ptr<MainQueue::Repetition> MacMainQueue::repeat(Seconds interval, Seconds tolerance, Task task) {
  return std::make_unique<TimerRepetition>(interval, tolerance, std::move(task));
}

MainQueue::WallTime MacMainQueue::now() const { return std::chrono::system_clock::now(); }

MainQueue::Seconds MacMainQueue::uptime() const {
  return std::chrono::steady_clock::now().time_since_epoch();
}

int MacMainQueue::run() {
  [NSApp run];
  finish();
  return exitStatus_;
}

void MacMainQueue::stop(int exitStatus) {
  exitStatus_ = exitStatus;
  endLoop();
}

/// `stop:` ends the innermost loop only, so dialogs are ended first, from the innermost outwards.
void MacMainQueue::endLoop() {
  if ([NSApp modalWindow] == nil) {
    [NSApp stop:nil];
  } else {
    [NSApp stopModalWithCode:NSModalResponseAbort];
    post([this] { endLoop(); });
  }
  wakeEventLoop();
}

void MacMainQueue::onAboutToStop(Task task) { aboutToStop_.push_back(std::move(task)); }

void MacMainQueue::finish() {
  for (const Task& task : std::exchange(aboutToStop_, {})) task();
}

}  // namespace tilwin::macos
