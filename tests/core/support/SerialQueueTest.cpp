#include "core/support/SerialQueue.h"

#include <gmock/gmock.h>

#include <atomic>
#include <future>
#include <memory>
#include <numeric>
#include <stdexcept>
#include <thread>

namespace tilwin {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

std::vector<int> countTo(int end) {
  std::vector<int> numbers(static_cast<std::size_t>(end));
  std::iota(numbers.begin(), numbers.end(), 0);
  return numbers;
}

struct SerialQueueThreads : testing::Test {
  std::vector<int> done;  ///< outlives the queue; written on the queue's thread alone
  std::unique_ptr<SerialQueue> queue = std::make_unique<SerialQueue>("test.queue");

  void give(int number) {
    queue->async([this, number] { done.push_back(number); });
  }
};

TEST_F(SerialQueueThreads, DoTasksInTheOrderGiven) {
  for (const int number : countTo(10'000)) give(number);
  queue->sync([] {});
  EXPECT_THAT(done, ElementsAreArray(countTo(10'000)));
}

TEST_F(SerialQueueThreads, DoNotMakeTheGiverWait) {
  std::promise<void> allowed;
  queue->async([&] { allowed.get_future().wait(); });
  give(1);
  EXPECT_TRUE(done.empty()) << "nobody has let the first task end yet";
  allowed.set_value();
  queue->sync([] {});
  EXPECT_THAT(done, ElementsAre(1));
}

TEST_F(SerialQueueThreads, DoATaskThatIsWaitedForAfterAllBefore) {
  for (const int number : countTo(1000)) give(number);
  std::size_t seen = 0;
  queue->sync([&] { seen = done.size(); });
  EXPECT_EQ(seen, 1000U);
}

TEST_F(SerialQueueThreads, DoAllTasksOnOneThreadThatIsNotTheGivers) {
  std::thread::id first;
  std::thread::id second;
  queue->sync([&] { first = std::this_thread::get_id(); });
  queue->sync([&] { second = std::this_thread::get_id(); });
  EXPECT_EQ(first, second);
  EXPECT_NE(first, std::this_thread::get_id());
}

TEST_F(SerialQueueThreads, DoEverythingGivenBeforeTheQueueEnds) {
  for (const int number : countTo(5000)) give(number);
  queue.reset();
  EXPECT_THAT(done, ElementsAreArray(countTo(5000)));
}

TEST_F(SerialQueueThreads, DoWhatATaskGivesWhileTheQueueEnds) {
  {
    SerialQueue ending("test.queue");
    ending.async([&] {
      done.push_back(1);
      ending.async([&] { done.push_back(2); });
    });
  }
  EXPECT_THAT(done, ElementsAre(1, 2));
}

TEST_F(SerialQueueThreads, TakeATaskFromWhatATaskOwnedAsItEnds) {
  queue->async([owned = std::shared_ptr<void>(nullptr, [this](void*) { give(7); })] {});
  queue->sync([] {});
  queue->sync([] {});
  EXPECT_THAT(done, ElementsAre(7));
}

TEST_F(SerialQueueThreads, LetGoOfWhatATaskOwnedBeforeTheNextIsDone) {
  const auto owned = std::make_shared<int>();
  queue->async([copy = owned] {});
  long owners = 0;
  queue->sync([&] { owners = owned.use_count(); });
  EXPECT_EQ(owners, 1);
}

TEST_F(SerialQueueThreads, GiveFromManyAtOnceAndEachKeepsItsOrder) {
  constexpr int givers = 8;
  constexpr int each = 2000;
  std::vector<std::thread> threads;
  threads.reserve(givers);
  for (int giver = 0; giver < givers; ++giver) {
    threads.emplace_back([this, giver] {
      for (const int number : countTo(each)) give(giver * each + number);
    });
  }
  for (auto& thread : threads) thread.join();
  queue->sync([] {});
  ASSERT_EQ(done.size(), std::size_t{givers} * each);
  std::stable_sort(done.begin(), done.end(), [](int one, int other) { return one / each < other / each; });
  EXPECT_THAT(done, ElementsAreArray(countTo(givers * each)));
}

TEST_F(SerialQueueThreads, WaitFromManyAtOnce) {
  std::atomic<int> wrong = 0;
  constexpr int waiters = 8;
  std::vector<std::thread> threads;
  threads.reserve(waiters);
  for (int waiter = 0; waiter < waiters; ++waiter) {
    threads.emplace_back([&] {
      for (int round = 0; round < 300; ++round) {
        bool isDone = false;
        queue->async([&] { isDone = true; });
        queue->sync([&] { done.push_back(round); });
        if (!isDone) ++wrong;
      }
    });
  }
  for (auto& thread : threads) thread.join();
  EXPECT_EQ(wrong, 0);
  EXPECT_EQ(done.size(), std::size_t{waiters} * 300);
}

TEST_F(SerialQueueThreads, BeginAndEndWithNothingToDo) {
  for (int round = 0; round < 200; ++round) queue = std::make_unique<SerialQueue>("test.queue");
  queue.reset();
  EXPECT_TRUE(done.empty());
}

TEST(SerialQueueDeath, NamesTheQueueOfATaskThatThrows) {
  testing::GTEST_FLAG(death_test_style) = "threadsafe";
  const auto given = [] {
    SerialQueue queue("test.queue");
    queue.async([] { throw std::runtime_error("out of luck"); });
  };
  EXPECT_DEATH(given(), "Tilwin: test.queue: out of luck");
  const auto waitedFor = [] {
    SerialQueue queue("test.queue");
    queue.sync([] { throw std::runtime_error("out of luck"); });
  };
  EXPECT_DEATH(waitedFor(), "Tilwin: test.queue: out of luck");
}

}  // namespace
}  // namespace tilwin
