#pragma once

#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <system_error>

namespace tilwin {

/// Makes one system call of this process fail with the error `reason` if its third argument is at least
/// `fromThirdArgument` (seccomp). This cannot be undone: call it in child processes only.
inline void refuseCall(long call, int reason, std::uint32_t fromThirdArgument = 0) {
  constexpr auto number = static_cast<std::uint32_t>(offsetof(seccomp_data, nr));
  constexpr auto third = static_cast<std::uint32_t>(offsetof(seccomp_data, args) + 2 * sizeof(std::uint64_t));
  std::array filter = std::to_array<sock_filter>({
      BPF_STMT(BPF_LD | BPF_W | BPF_ABS, number),
      BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<std::uint32_t>(call), 0, 3),
      BPF_STMT(BPF_LD | BPF_W | BPF_ABS, third),
      BPF_JUMP(BPF_JMP | BPF_JGE | BPF_K, fromThirdArgument, 0, 1),
      BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | static_cast<std::uint32_t>(reason)),
      BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
  });
  const sock_fprog program{.len = filter.size(), .filter = filter.data()};
  if (::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 ||
      ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program, 0, 0) != 0)
    throw std::system_error(errno, std::generic_category(), "cannot have calls refused");
}

}  // namespace tilwin
