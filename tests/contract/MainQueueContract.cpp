#include <vector>

#include "tests/contract/World.h"

namespace tilwin::contract {

using namespace std::chrono_literals;
using Seconds = MainQueue::Seconds;

/// Differences of floating-point times are not exact.
constexpr Seconds rounding = 1us;

int MainQueueContract::run() {
  // Shared, as the task outlives this call when something else ends the run.
  const auto over = std::make_shared<bool>(false);
  queue.postAfter(10s, [this, over] {
    if (!*over) queue.stop(nobodyStopped);
  });
  const int exitStatus = queue.run();
  *over = true;
  return exitStatus;
}

void MainQueueContract::stopAfter(Seconds delay, int exitStatus) {
  queue.postAfter(delay, [this, exitStatus] { queue.stop(exitStatus); });
}

TEST_P(MainQueueContract, RunReturnsTheStatusGivenToStop) {
  queue.post([&] { queue.stop(7); });
  EXPECT_EQ(run(), 7);
}

TEST_P(MainQueueContract, TasksRunInTheOrderPosted) {
  std::vector<int> order;
  for (int number = 1; number <= 5; ++number) queue.post([&order, number] { order.push_back(number); });
  queue.post([&] { queue.stop(0); });
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(order, (std::vector{1, 2, 3, 4, 5}));
}

TEST_P(MainQueueContract, APostedTaskNeverRunsInsidePost) {
  bool ran = false;
  bool ranInside = false;
  queue.post([&] {
    queue.post([&] {
      ran = true;
      queue.stop(0);
    });
    ranInside = ran;
  });
  EXPECT_FALSE(ran);
  EXPECT_EQ(run(), 0);
  EXPECT_TRUE(ran);
  EXPECT_FALSE(ranInside);
}

TEST_P(MainQueueContract, ATaskPostedByATaskRunsAfterThoseThatWaitAlready) {
  std::vector<int> order;
  queue.post([&] {
    order.push_back(1);
    queue.post([&] {
      order.push_back(3);
      queue.stop(0);
    });
  });
  queue.post([&] { order.push_back(2); });
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(order, (std::vector{1, 2, 3}));
}

TEST_P(MainQueueContract, ADelayedTaskRunsOnceAndNoEarlierThanAsked) {
  const Seconds start = queue.uptime();
  Seconds waited{};
  int times = 0;
  queue.postAfter(60ms, [&] {
    ++times;
    waited = queue.uptime() - start;
  });
  stopAfter(200ms);
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(times, 1);
  EXPECT_GE(waited, 60ms - rounding);
}

TEST_P(MainQueueContract, DelayedTasksRunByTheirMomentNotByWhenTheyWereAskedFor) {
  std::vector<int> order;
  queue.postAfter(120ms, [&] { order.push_back(3); });
  queue.postAfter(20ms, [&] { order.push_back(2); });
  queue.post([&] { order.push_back(1); });
  stopAfter(250ms);
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(order, (std::vector{1, 2, 3}));
}

TEST_P(MainQueueContract, ARepetitionGoesOnForAsLongAsItIsHeld) {
  int times = 0;
  std::unique_ptr<MainQueue::Repetition> repetition;
  repetition = queue.repeat(20ms, 5ms, [&] {
    if (++times == 3) repetition.reset();
  });
  stopAfter(400ms);
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(times, 3);
}

TEST_P(MainQueueContract, ARepetitionDoesNotRunBeforeItsFirstIntervalIsOver) {
  const Seconds start = queue.uptime();
  Seconds first{};
  const auto repetition = queue.repeat(80ms, 0ms, [&] {
    first = queue.uptime() - start;
    queue.stop(0);
  });
  EXPECT_EQ(run(), 0);
  // A timer may be a few milliseconds early against another clock.
  EXPECT_GE(first, Seconds(75ms));
}

TEST_P(MainQueueContract, ARepetitionLetGoBeforeTheRunNeverHappens) {
  int times = 0;
  queue.repeat(10ms, 0ms, [&] { ++times; }).reset();
  stopAfter(80ms);
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(times, 0);
}

TEST_P(MainQueueContract, StopEndsTheRunAfterTheCurrentTask) {
  std::vector<int> order;
  queue.post([&] {
    queue.stop(0);
    order.push_back(1);
  });
  EXPECT_EQ(run(), 0);
  EXPECT_EQ(order, std::vector{1});
}

TEST_P(MainQueueContract, WhatIsToBeDoneBeforeStoppingIsDoneInItsOrderBeforeRunReturns) {
  // Shared, as an adapter may keep these tasks for as long as it lives.
  const auto order = std::make_shared<std::vector<int>>();
  queue.onAboutToStop([order] { order->push_back(1); });
  queue.onAboutToStop([order] { order->push_back(2); });
  queue.post([this, order] {
    queue.stop(4);
    order->push_back(0);
  });
  EXPECT_EQ(run(), 4);
  EXPECT_EQ(*order, (std::vector{0, 1, 2}));
}

TEST_P(MainQueueContract, BothClocksGoForward) {
  const Seconds start = queue.uptime();
  const auto startWall = queue.now();
  stopAfter(60ms);
  EXPECT_EQ(run(), 0);
  EXPECT_GE(queue.uptime() - start, Seconds(55ms));
  EXPECT_GE(queue.now() - startWall, 50ms);
}

}  // namespace tilwin::contract
