#pragma once

#include <sys/types.h>

#include "tests/desktop/harness/Descriptor.h"
#include "tests/desktop/harness/Waiting.h"

namespace tilwin::desktop {

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
