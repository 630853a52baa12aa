// Whoever uses the whole program in its tests.

#include "tests/macos/program/Person.h"

#import <Foundation/Foundation.h>
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <stdexcept>

#include "platform/macos/support/Held.h"

namespace tilwin::macos {
namespace {

std::atomic<bool> isFirstDone = false;
std::atomic<bool> isRestDone = false;

/// Handles acts on this thread until the person has ended.
void letAPersonFail() {
  std::atomic<bool> isOver = false;
  const Person person([&isOver](Person& user) {
    const auto over = std::shared_ptr<void>(nullptr, [&isOver](void*) { isOver = true; });
    user.act([] { isFirstDone = true; });
    user.act([] { throw std::logic_error("the hand slips"); });
    isRestDone = true;
  });
  while (!isOver) {
    const AutoreleasePool pool;
    [[NSRunLoop mainRunLoop] runMode:NSDefaultRunLoopMode
                          beforeDate:[NSDate dateWithTimeIntervalSinceNow:0.01]];
  }
}

}  // namespace

TEST(Person, AnActThatThrowsFailsTheTestAndEndsWhatTheyDo) {
  EXPECT_NONFATAL_FAILURE_ON_ALL_THREADS(letAPersonFail(), "the hand slips");
  EXPECT_TRUE(isFirstDone);
  EXPECT_FALSE(isRestDone);
}

}  // namespace tilwin::macos
