#include "tests/macos/program/Person.h"

#import <AppKit/AppKit.h>
#include <gtest/gtest.h>

#include <exception>
#include <future>
#include <memory>
#include <stdexcept>
#include <utility>

#include "platform/macos/support/Action.h"
#include "platform/macos/support/Held.h"

namespace tilwin::macos {
namespace {

void performOnMainThread(std::function<void()> act) {
  const auto target = action([act = std::move(act)](id) { act(); });
  [target.get()
      performSelectorOnMainThread:@selector(perform:)
                       withObject:nil
                    waitUntilDone:NO
                            modes:@[
                              NSDefaultRunLoopMode, NSModalPanelRunLoopMode, NSEventTrackingRunLoopMode
                            ]];
}

}  // namespace

Person::Person(std::function<void(Person&)> doing)
    : thread_([this, doing = std::move(doing)] {
        GSRegisterCurrentThread();
        try {
          doing(*this);
        } catch (const std::exception& end) {
          ADD_FAILURE() << end.what();
        }
        GSUnregisterCurrentThread();
      }) {}

Person::~Person() { thread_.join(); }

void Person::act(std::function<void()> act) {
  const AutoreleasePool pool;
  const auto task = std::make_shared<std::packaged_task<void()>>(std::move(act));
  auto done = task->get_future();
  performOnMainThread([task] { (*task)(); });
  if (done.wait_for(2 * desktop::answerTimeout) != std::future_status::ready) {
    throw std::runtime_error("The event loop handles nothing any more.");
  }
  done.get();
}

bool Person::sees(const std::function<bool()>& condition, desktop::Milliseconds patience) {
  const auto until = desktop::Clock::now() + patience;
  const auto holds = std::make_shared<bool>(false);
  while (!*holds && desktop::Clock::now() < until) {
    act([holds, condition] { *holds = condition(); });
    if (!*holds) std::this_thread::sleep_for(desktop::Milliseconds{10});
  }
  return *holds;
}

}  // namespace tilwin::macos
