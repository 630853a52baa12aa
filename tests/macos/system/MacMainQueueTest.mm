#import <AppKit/AppKit.h>
#include <gtest/gtest.h>

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
  runEventLoop(30ms);
  EXPECT_EQ(ran, 0);
}

TEST(MacMainQueue, ATaskOfTheLoopRunsAndRunReturnsItsStatus) {
  MacMainQueue queue;
  queue.postAfter(20ms, [&queue] { queue.stop(5); });
  EXPECT_EQ(queue.run(), 5);
}

}  // namespace tilwin::macos
