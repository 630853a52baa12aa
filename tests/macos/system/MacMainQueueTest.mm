#import <AppKit/AppKit.h>
#include <gtest/gtest.h>

#include "platform/macos/support/Held.h"
#include "platform/macos/system/MacMainQueue.h"
#include "tests/macos/desktop/EventLoop.h"

namespace tilwin::macos {

using namespace std::chrono_literals;

TEST(MacMainQueue, WhatIsToBeDoneBeforeStoppingIsDoneWhenTheSystemEndsTheProgram) {
  MacMainQueue queue;
  int times = 0;
  queue.onAboutToStop([&times] { ++times; });
  for (int attempt = 0; attempt < 2; ++attempt) {
    [[NSNotificationCenter defaultCenter] postNotificationName:NSApplicationWillTerminateNotification
                                                        object:NSApp];
  }
  EXPECT_EQ(times, 1);
}

TEST(MacMainQueue, TasksThatWaitAreDroppedWithTheQueue) {
  int ran = 0;
  {
    MacMainQueue queue;
    queue.post([&ran] { ++ran; });
    queue.postAfter(1ms, [&ran] { ++ran; });
  }
  MacMainQueue living;
  bool isLater = false;
  living.postAfter(5ms, [&isLater] { isLater = true; });
  EXPECT_TRUE(runEventLoopUntil([&isLater] { return isLater; }));
  EXPECT_TRUE(finishTasks(living));
  EXPECT_EQ(ran, 0);
}

/// What the event loop does while a menu is open.
TEST(MacMainQueue, TasksAndTimersRunWhileAMenuIsOpen) {
  MacMainQueue queue;
  int tasks = 0;
  int times = 0;
  queue.post([&tasks] { ++tasks; });
  queue.postAfter(1ms, [&tasks] { ++tasks; });
  const auto repetition = queue.repeat(1ms, 0ms, [&times] { ++times; });
  const auto until = desktop::Clock::now() + desktop::answerTimeout;
  while ((tasks < 2 || times < 2) && desktop::Clock::now() < until) {
    const AutoreleasePool pool;
    [[NSRunLoop mainRunLoop] runMode:NSEventTrackingRunLoopMode
                          beforeDate:[NSDate dateWithTimeIntervalSinceNow:0.01]];
  }
  EXPECT_EQ(tasks, 2);
  EXPECT_GE(times, 2);
}

}  // namespace tilwin::macos
