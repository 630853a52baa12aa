#include "tests/desktop/harness/Descriptor.h"

#include <fcntl.h>
#include <unistd.h>

#include <poll.h>
#include <sys/syscall.h>
#include <algorithm>
#include <array>

#include "tests/desktop/harness/HarnessError.h"

namespace tilwin::desktop {

void Descriptor::close() {
  if (number_ >= 0) ::close(std::exchange(number_, -1));
}

Pipe Pipe::make() {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) throw HarnessError("no pipe to be had");
  return {Descriptor(ends[0]), Descriptor(ends[1])};
}

// By system call: the C library's header for these is not usable from C++ everywhere.
ProcessHandle::ProcessHandle(pid_t process)
    : descriptor_(static_cast<int>(syscall(SYS_pidfd_open, process, 0))) {}

void ProcessHandle::signal(int number) const {
  syscall(SYS_pidfd_send_signal, descriptor_.number(), number, nullptr, 0);
}

bool ProcessHandle::waitForEnd(Milliseconds timeout) const {
  pollfd end{descriptor_.number(), POLLIN, 0};
  return poll(&end, 1, static_cast<int>(std::max<Milliseconds::rep>(timeout.count(), 0))) != 0;
}

}  // namespace tilwin::desktop
