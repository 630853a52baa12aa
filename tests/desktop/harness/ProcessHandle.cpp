#include "tests/desktop/harness/ProcessHandle.h"

#include <poll.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>

namespace tilwin::desktop {

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
