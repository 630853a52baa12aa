#pragma once

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <exception>
#include <functional>

namespace tilwin {

/// What became of something done in a child process, whose limits and rights are its own.
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
