// The stand-in for AppKit's event monitors, which several adapters rely on.

#import <AppKit/AppKit.h>
#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "platform/macos/support/Held.h"
#include "tests/macos/gnustep/EventsElsewhere.h"

namespace tilwin::macos {
namespace {

NSEvent* keyEvent(NSEventType type) {
  return [NSEvent keyEventWithType:type
                          location:NSZeroPoint
                     modifierFlags:0
                         timestamp:0
                      windowNumber:0
                           context:nil
                        characters:@"a"
       charactersIgnoringModifiers:@"a"
                         isARepeat:NO
                           keyCode:0];
}

/// Notes the events that reach windows.
class Recipient {
public:
  explicit Recipient(std::vector<NSEventType>& seen)
      : monitor_(retained([NSEvent addLocalMonitorForEventsMatchingMask:~NSEventMask{0}
                                                                handler:^NSEvent*(NSEvent* event) {
                                                                  seen.push_back([event type]);
                                                                  return event;
                                                                }])) {}
  Recipient(const Recipient&) = delete;
  Recipient& operator=(const Recipient&) = delete;
  ~Recipient() { [NSEvent removeMonitor:monitor_.get()]; }

private:
  Held<id> monitor_;
};

}  // namespace

TEST(EventMonitors, ALocalMonitorMayKeepAnEventOfItsTypeFromWhatComesAfterIt) {
  const AutoreleasePool pool;
  std::vector<NSEventType> seen;
  int kept = 0;
  int* const count = &kept;
  id const monitor = [NSEvent addLocalMonitorForEventsMatchingMask:NSKeyDownMask
                                                           handler:^NSEvent*(NSEvent*) {
                                                             ++*count;
                                                             return nil;
                                                           }];
  const Recipient after(seen);
  [NSApp sendEvent:keyEvent(NSKeyDown)];
  [NSApp sendEvent:keyEvent(NSKeyUp)];
  EXPECT_EQ(kept, 1);
  EXPECT_EQ(seen, std::vector<NSEventType>{NSKeyUp});
  [NSEvent removeMonitor:monitor];
  [NSApp sendEvent:keyEvent(NSKeyDown)];
  EXPECT_EQ(kept, 1);
  EXPECT_EQ(seen, (std::vector<NSEventType>{NSKeyUp, NSKeyDown}));
}

TEST(EventMonitors, AGlobalMonitorSeesTheEventsOfOtherProgramsOnly) {
  const AutoreleasePool pool;
  int seen = 0;
  int* const count = &seen;
  id const monitor = [NSEvent addGlobalMonitorForEventsMatchingMask:NSKeyDownMask
                                                            handler:^(NSEvent*) {
                                                              ++*count;
                                                            }];
  [NSApp sendEvent:keyEvent(NSKeyDown)];
  EXPECT_EQ(seen, 0);
  deliverElsewhere(keyEvent(NSKeyDown));
  deliverElsewhere(keyEvent(NSKeyUp));
  EXPECT_EQ(seen, 1);
  [NSEvent removeMonitor:monitor];
  deliverElsewhere(keyEvent(NSKeyDown));
  EXPECT_EQ(seen, 1);
  EXPECT_EQ(eventMonitors(), 0U);
}

TEST(EventMonitors, AHandlerMayRemoveItsOwnMonitor) {
  const AutoreleasePool pool;
  __block id monitor = nil;
  __block int seen = 0;
  monitor = [NSEvent addLocalMonitorForEventsMatchingMask:NSKeyDownMask
                                                  handler:^NSEvent*(NSEvent* event) {
                                                    ++seen;
                                                    [NSEvent removeMonitor:monitor];
                                                    return event;
                                                  }];
  [NSApp sendEvent:keyEvent(NSKeyDown)];
  [NSApp sendEvent:keyEvent(NSKeyDown)];
  EXPECT_EQ(seen, 1);
  EXPECT_EQ(eventMonitors(), 0U);
}

TEST(EventMonitors, OnlyAMonitorThatIsThereMayBeRemoved) {
  const AutoreleasePool pool;
  const auto monitor = Held<id>::retained([NSEvent addGlobalMonitorForEventsMatchingMask:NSKeyDownMask
                                                                                 handler:^(NSEvent*){
                                                                                 }]);
  [NSEvent removeMonitor:monitor.get()];
  for (id other : {monitor.get(), static_cast<id>(nil), static_cast<id>(@"monitor")}) {
    EXPECT_DEATH([NSEvent removeMonitor:other], "no event monitor");
  }
}

TEST(EventMonitors, ARemovedMonitorReleasesItsHandlerAndWhatThatHolds) {
  const auto held = std::make_shared<int>();
  {
    const AutoreleasePool pool;
    id const monitor = [NSEvent addLocalMonitorForEventsMatchingMask:NSKeyDownMask
                                                             handler:^NSEvent*(NSEvent* event) {
                                                               return held ? event : nil;
                                                             }];
    EXPECT_GT(held.use_count(), 1);
    [NSEvent removeMonitor:monitor];
  }
  EXPECT_EQ(held.use_count(), 1);
}

}  // namespace tilwin::macos
