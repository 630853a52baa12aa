#include "platform/macos/system/MacStopSignals.h"

#import <AppKit/AppKit.h>
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>

#include "platform/macos/system/MacMainQueue.h"

namespace tilwin::macos {

using namespace std::chrono_literals;

/// The tests' program waits for these signals on a thread, so it has blocked them.
class MacStopSignalsTest : public testing::TestWithParam<int> {
protected:
  void SetUp() override {
    sigset_t tested;
    ::sigemptyset(&tested);
    ::sigaddset(&tested, GetParam());
    ::pthread_sigmask(SIG_UNBLOCK, &tested, &before_);
  }
  void TearDown() override { ::pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

private:
  sigset_t before_{};
};

TEST_P(MacStopSignalsTest, TheProgramEndsInOrder) {
  MacMainQueue queue;
  const MacStopSignals signals(queue);
  bool hasSaved = false;
  queue.onAboutToStop([&hasSaved] { hasSaved = true; });
  queue.post([] { std::raise(GetParam()); });
  queue.postAfter(10s, [&queue] { queue.stop(1); });
  EXPECT_EQ(queue.run(), 0);
  EXPECT_TRUE(hasSaved);
}

TEST_P(MacStopSignalsTest, ADialogIsNoObstacle) {
  MacMainQueue queue;
  const MacStopSignals signals(queue);
  queue.post([] {
    const auto alert = owned([[NSAlert alloc] init]);
    [alert.get() setMessageText:@"Layout saved"];
    [alert.get() runModal];
  });
  queue.postAfter(200ms, [] { std::raise(GetParam()); });
  queue.postAfter(10s, [&queue] { queue.stop(1); });
  EXPECT_EQ(queue.run(), 0);
}

TEST_P(MacStopSignalsTest, AfterwardsTheSignalsDoWhatTheyDoByDefault) {
  {
    MacMainQueue queue;
    const MacStopSignals signals(queue);
  }
  EXPECT_EXIT(std::raise(GetParam()), testing::KilledBySignal(GetParam()), "");
}

INSTANTIATE_TEST_SUITE_P(MacStopSignals, MacStopSignalsTest, testing::Values(SIGTERM, SIGINT, SIGHUP));

}  // namespace tilwin::macos
