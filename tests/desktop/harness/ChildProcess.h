#pragma once

#include <sys/types.h>

#include <csignal>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "tests/desktop/harness/Descriptor.h"
#include "tests/desktop/harness/Environment.h"
#include "tests/desktop/harness/Waiting.h"

namespace tilwin::desktop {

/// What to start and how.
struct Launch {
  /// The program (found on this process's PATH when it has no slash) and its arguments.
  std::vector<std::string> argv = {};
  Environment environment = {};
  /// The file that standard output is appended to, and standard error unless errorFile is set. Empty:
  /// /dev/null.
  std::filesystem::path outputFile = {};
  std::filesystem::path errorFile = {};
  /// Descriptors to pass on: the child's number, mapped to ours. The child closes all others.
  std::map<int, int> descriptors = {};
  std::filesystem::path workingFolder = "/";
  /// The signal the child receives when the thread that started it dies.
  int deathSignal = SIGKILL;
};

/// How a process ended: the exit code, or the number of the signal that ended it.
struct ExitStatus {
  std::optional<int> code;
  std::optional<int> signal;
  bool operator==(const ExitStatus&) const = default;
};

/// A program running as the leader of its own process group. The destructor ends the whole group. The program
/// also dies when the thread that started it dies, so start children from threads that outlive them.
class ChildProcess {
public:
  /// Throws HarnessError when the program cannot be started (not found, not executable).
  static ChildProcess start(const Launch& launch);

  ChildProcess() = default;
  ChildProcess(ChildProcess&& other) noexcept;
  ChildProcess& operator=(ChildProcess&& other) noexcept;
  ChildProcess(const ChildProcess&) = delete;
  ChildProcess& operator=(const ChildProcess&) = delete;
  ~ChildProcess();

  pid_t pid() const { return pid_; }
  bool running();

  /// The exit status; nothing if the process is still running after the timeout.
  std::optional<ExitStatus> status();
  std::optional<ExitStatus> waitFor(Milliseconds timeout);

  /// Sends a signal to the process, not to its group. Does nothing if it has ended.
  void signal(int number);

  /// Sends SIGTERM to the group, and SIGKILL if the process is still running after the grace period; then
  /// kills the rest of the group. Returns how the process ended.
  std::optional<ExitStatus> end(Milliseconds grace = Milliseconds{2000});

  /// The output so far; empty if it does not go to a file.
  std::string output() const;
  std::string errorOutput() const;

private:
  ChildProcess(pid_t pid, const Launch& launch);
  void reap();

  pid_t pid_ = 0;
  ProcessHandle handle_;
  std::optional<ExitStatus> status_;
  std::filesystem::path outputFile_;
  std::filesystem::path errorFile_;
};

/// The last lines of a text, for a message.
std::string lastLines(const std::string& text, std::size_t count);

/// Starts the program as the leader of a new process group and returns its process id. Throws HarnessError if
/// it cannot be executed. Used by ChildProcess, which owns the process.
pid_t spawn(const Launch& launch);

}  // namespace tilwin::desktop
