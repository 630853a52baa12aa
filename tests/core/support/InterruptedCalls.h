#pragma once

#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <system_error>
#include <thread>

namespace tilwin {

/// From now on this thread's calls of one kind are held until whoever reads the descriptor answers them.
inline int listenTo(long call) {
  constexpr auto number = static_cast<std::uint32_t>(offsetof(seccomp_data, nr));
  std::array filter = std::to_array<sock_filter>({
      BPF_STMT(BPF_LD | BPF_W | BPF_ABS, number),
      BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<std::uint32_t>(call), 0, 1),
      BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_USER_NOTIF),
      BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
  });
  const sock_fprog program{.len = filter.size(), .filter = filter.data()};
  if (::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0) {
    const long listener =
        ::syscall(SYS_seccomp, SECCOMP_SET_MODE_FILTER, SECCOMP_FILTER_FLAG_NEW_LISTENER, &program);
    if (listener >= 0) return static_cast<int>(listener);
  }
  throw std::system_error(errno, std::generic_category(), "cannot listen to calls");
}

/// Sanitizers write into pipes to find out which memory can be read.
inline bool isPipe(std::uint64_t descriptor) {
  struct stat what {};
  return ::fstat(static_cast<int>(descriptor), &what) == 0 && S_ISFIFO(what.st_mode);
}

/// The next call of that kind in this thread fails as if a signal had arrived before it did anything; those
/// after it go through. There is no way back: for child processes.
inline void interruptNext(long call) {
  constexpr int none = -1;
  const auto listener = std::make_shared<std::atomic<int>>(none);
  std::thread([listener] {
    listener->wait(none);
    for (bool isDue = true;;) {
      seccomp_notif held{};
      if (::ioctl(*listener, SECCOMP_IOCTL_NOTIF_RECV, &held) != 0) return;
      seccomp_notif_resp answer{};
      answer.id = held.id;
      if (isDue && !isPipe(held.data.args[0])) {
        isDue = false;
        answer.error = -EINTR;
      } else {
        answer.flags = SECCOMP_USER_NOTIF_FLAG_CONTINUE;
      }
      ::ioctl(*listener, SECCOMP_IOCTL_NOTIF_SEND, &answer);
    }
  }).detach();
  listener->store(listenTo(call));
  listener->notify_one();
}

}  // namespace tilwin
