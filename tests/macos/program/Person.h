#pragma once

#include <functional>
#include <thread>

#include "tests/desktop/harness/Waiting.h"

namespace tilwin::macos {

/// Somebody who uses the program while it runs: a thread beside the main one, which its event loop occupies.
/// What hands do and eyes see happens on the main thread, in whatever state its loop is, such as that of a
/// dialog.
class Person {
public:
  /// Starts to do this at once. If an act throws, or the event loop handles nothing any more, the test fails
  /// and the rest is not done.
  explicit Person(std::function<void(Person&)> doing);
  Person(const Person&) = delete;
  Person& operator=(const Person&) = delete;
  /// Waits until all is done.
  ~Person();

  /// For the thread of the person: returns when it has been done, or throws what that threw.
  static void act(std::function<void()> act);
  /// Looks until it is so; false if that takes too long.
  static bool sees(const std::function<bool()>& condition,
                   desktop::Milliseconds patience = desktop::answerTimeout);

private:
  std::thread thread_;
};

}  // namespace tilwin::macos
