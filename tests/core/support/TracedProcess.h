#pragma once

#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <exception>
#include <functional>
#include <system_error>

namespace tilwin {

/// A child process that stops whenever one of its threads enters or leaves a system call. Files change at no
/// other time, so checking them at every stop sees every intermediate state. Create it only while the test
/// has no other threads or processes.
class TracedProcess {
public:
  explicit TracedProcess(const std::function<void()>& deed) : id_(::fork()), stopped_(id_) {
    if (id_ < 0) throw std::system_error(errno, std::generic_category(), "cannot make a process");
    if (id_ == 0) perform(deed);
    ::waitpid(id_, &status_, 0);
    ::ptrace(PTRACE_SETOPTIONS, id_, nullptr, PTRACE_O_TRACECLONE | PTRACE_O_TRACESYSGOOD);
  }
  TracedProcess(const TracedProcess&) = delete;
  TracedProcess& operator=(const TracedProcess&) = delete;
  ~TracedProcess() { kill(); }

  /// Continues to the next stop; returns false if the process ends instead.
  bool goOn() {
    if (hasEnded()) return false;
    ::ptrace(PTRACE_SYSCALL, stopped_, nullptr, nullptr);
    do {
      stopped_ = ::waitpid(-1, &status_, __WALL);
    } while (stopped_ != id_ && !WIFSTOPPED(status_));
    return !hasEnded();
  }

  /// Continues until a thread enters this system call.
  bool goOnTo(long call) {
    while (goOn()) {
      struct __ptrace_syscall_info info {};
      ::ptrace(PTRACE_GET_SYSCALL_INFO, stopped_, sizeof info, &info);
      if (info.op == PTRACE_SYSCALL_INFO_ENTRY && static_cast<long>(info.entry.nr) == call) return true;
    }
    return false;
  }

  void kill() {
    if (hasEnded()) return;
    ::kill(id_, SIGKILL);
    while (!hasEnded()) stopped_ = ::waitpid(-1, &status_, __WALL);
  }

private:
  [[noreturn]] static void perform(const std::function<void()>& deed) {
    ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
    ::raise(SIGSTOP);
    try {
      deed();
    } catch (const std::exception&) {
      ::_exit(1);
    }
    ::_exit(0);
  }

  [[nodiscard]] bool hasEnded() const {
    return stopped_ < 0 || (stopped_ == id_ && (WIFEXITED(status_) || WIFSIGNALED(status_)));
  }

  pid_t id_;
  pid_t stopped_;  ///< the thread that stopped last
  int status_ = 0;
};

}  // namespace tilwin
