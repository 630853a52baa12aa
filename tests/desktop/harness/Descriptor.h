#pragma once

#include <sys/types.h>
#include <utility>

#include "tests/desktop/harness/Waiting.h"

namespace tilwin::desktop {

/// Owns a file descriptor; negative if there is none.
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

/// Both ends of a pipe, closed on exec.
struct Pipe {
  Descriptor readEnd;
  Descriptor writeEnd;

  /// Throws HarnessError if no pipe can be created.
  static Pipe make();
};

/// A process identified by a descriptor, which unlike its id is never reused (pidfd_open(2)).
class ProcessHandle {
public:
  ProcessHandle() = default;
  /// Empty if the process does not exist.
  explicit ProcessHandle(pid_t process);

  explicit operator bool() const { return static_cast<bool>(descriptor_); }

  void signal(int number) const;
  /// Waits until the process has ended; returns false on timeout.
  bool waitForEnd(Milliseconds timeout) const;

private:
  Descriptor descriptor_;
};

}  // namespace tilwin::desktop
