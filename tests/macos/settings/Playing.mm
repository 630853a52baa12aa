#include "tests/macos/settings/Playing.h"

#include <stdexcept>
#include <utility>

#include "platform/macos/support/Action.h"
#include "platform/macos/support/Held.h"
#include "tests/macos/desktop/EventLoop.h"

namespace tilwin::macos {
namespace {

constexpr NSTimeInterval pause = 0.012;

class Playing {
public:
  explicit Playing(std::vector<Happening> events)
      : events_(std::move(events)), target_(action([this](id) { next(); })) {
    monitor_ = retained([NSEvent addLocalMonitorForEventsMatchingMask:NSApplicationDefinedMask
                                                              handler:^NSEvent*(NSEvent* event) {
                                                                if ([event subtype] == mark) isOver_ = true;
                                                                return event;
                                                              }]);
    timer_ = retained([NSTimer timerWithTimeInterval:pause
                                              target:target_.get()
                                            selector:@selector(perform:)
                                            userInfo:nil
                                             repeats:YES]);
    for (NSString* mode in @[ NSDefaultRunLoopMode, NSModalPanelRunLoopMode, NSEventTrackingRunLoopMode ]) {
      [[NSRunLoop currentRunLoop] addTimer:timer_.get() forMode:mode];
    }
  }
  Playing(const Playing&) = delete;
  Playing& operator=(const Playing&) = delete;
  ~Playing() {
    [timer_.get() invalidate];
    [NSEvent removeMonitor:monitor_.get()];
  }

  void play() {
    if (!runEventLoopUntil([this] { return isOver_; })) throw std::logic_error("the events are not handled");
  }

private:
  static constexpr short mark = 4711;

  void next() {
    if (position_ > events_.size()) return;
    NSEvent* const event = position_ < events_.size() ? events_[position_]() : marker();
    ++position_;
    [NSApp postEvent:event atStart:NO];
  }
  /// Handled when all before it are.
  [[nodiscard]] static NSEvent* marker() {
    return [NSEvent otherEventWithType:NSApplicationDefined
                              location:NSZeroPoint
                         modifierFlags:0
                             timestamp:0
                          windowNumber:0
                               context:nil
                               subtype:mark
                                 data1:0
                                 data2:0];
  }

  std::vector<Happening> events_;
  std::size_t position_ = 0;
  bool isOver_ = false;
  Held<TWAction*> target_;
  Held<id> monitor_;
  Held<NSTimer*> timer_;
};

}  // namespace

void play(std::vector<Happening> events) { Playing(std::move(events)).play(); }

}  // namespace tilwin::macos
