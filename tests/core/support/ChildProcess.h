#pragma once

#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <exception>
#include <functional>
#include <new>
#include <system_error>

namespace tilwin {

/// A child process that runs concurrently with the test and is killed by the destructor. Create it only while
/// the test has no other threads.
class ChildProcess {
public:
  explicit ChildProcess(const std::function<void()>& deed) : id_(::fork()) {
    if (id_ < 0) throw std::system_error(errno, std::generic_category(), "cannot make a process");
    if (id_ != 0) return;
    try {
      deed();
    } catch (const std::exception&) {
      ::_exit(1);
    }
    ::_exit(0);
  }
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;
  ~ChildProcess() { kill(); }

  [[nodiscard]] pid_t id() const { return id_; }

  /// Kills the process and waits until it has ended.
  void kill() {
    if (id_ <= 0) return;
    ::kill(id_, SIGKILL);
    wait();
  }

  /// Waits until the process stops itself; returns false if it ends instead.
  bool waitForStop() {
    if (id_ <= 0 || ::waitpid(id_, &status_, WUNTRACED) != id_) return false;
    if (!WIFSTOPPED(status_)) id_ = 0;
    return WIFSTOPPED(status_);
  }

  /// Waits for its end; returns true if it completed its task.
  bool endsWell() {
    wait();
    return WIFEXITED(status_) && WEXITSTATUS(status_) == 0;
  }

private:
  void wait() {
    if (id_ > 0) ::waitpid(id_, &status_, 0);
    id_ = 0;
  }

  pid_t id_;
  int status_ = 0;
};

/// A value in memory shared with child processes that are created later. It survives a child that is killed.
template <typename T>
class Shared {
public:
  Shared() : memory_(::mmap(nullptr, sizeof(T), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0)) {
    if (memory_ == MAP_FAILED) throw std::bad_alloc();
    new (memory_) T{};
  }
  Shared(const Shared&) = delete;
  Shared& operator=(const Shared&) = delete;
  ~Shared() { ::munmap(memory_, sizeof(T)); }

  T& operator*() const { return *static_cast<T*>(memory_); }
  T* operator->() const { return static_cast<T*>(memory_); }

private:
  void* memory_;
};

/// The outcome of a function run in a child process, which can change its own limits and privileges.
enum class ChildOutcome { done, threw, died };

inline ChildOutcome inChild(const std::function<void()>& deed) {
  const pid_t child = ::fork();
  if (child == 0) {
    try {
      deed();
    } catch (const std::exception&) {
      ::_exit(1);
    }
    ::_exit(0);
  }
  int status = 0;
  if (child < 0 || ::waitpid(child, &status, 0) != child || !WIFEXITED(status)) return ChildOutcome::died;
  return WEXITSTATUS(status) == 0 ? ChildOutcome::done : ChildOutcome::threw;
}

}  // namespace tilwin
