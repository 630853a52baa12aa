#pragma once

#include <sys/types.h>
#include <utility>

#include "tests/desktop/harness/Waiting.h"

namespace tilwin::desktop {

/// The owner of an open file descriptor; none when negative.
class Descriptor {
public:
  explicit Descriptor(int number = -1) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() { close(); }

  int number() const { return number_; }
  explicit operator bool() const { return number_ >= 0; }
  void close();

private:
  int number_;
};

/// Both ends of a pipe that no program started later inherits by itself.
struct Pipe {
  Descriptor readEnd;
  Descriptor writeEnd;

  /// Throws HarnessError when there is none to be had.
  static Pipe make();
};

/// A process held by a descriptor, which cannot come to mean another process once this one has gone
/// (pidfd_open(2)).
class ProcessHandle {
public:
  ProcessHandle() = default;
  /// Empty when there is no such process.
  explicit ProcessHandle(pid_t process);

  explicit operator bool() const { return static_cast<bool>(descriptor_); }

  void signal(int number) const;
  /// Waits until the process has ended; false when it still runs after the timeout.
  bool waitForEnd(Milliseconds timeout) const;

private:
  Descriptor descriptor_;
};

}  // namespace tilwin::desktop
