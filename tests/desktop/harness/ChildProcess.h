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
  /// Where standard output goes, and standard error unless errorFile names another file; appended to.
  /// Empty: /dev/null.
  std::filesystem::path outputFile = {};
  std::filesystem::path errorFile = {};
  /// Descriptors of this process to hand on: the child's number to ours. All others are closed in the child.
  std::map<int, int> descriptors = {};
  std::filesystem::path workingFolder = "/";
  /// What the kernel sends the child when the thread that started it dies.
  int deathSignal = SIGKILL;
};

/// How a process ended: the exit code, or the number of the signal that ended it.
struct ExitStatus {
  std::optional<int> code;
  std::optional<int> signal;
  bool operator==(const ExitStatus&) const = default;
};

/// A program running as the leader of its own process group, ended with all its group by the destructor.
/// It also dies when the thread that started it dies, so start children from threads that outlive them.
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

  /// The exit status once the process has ended; nothing while it runs (also after the timeout).
  std::optional<ExitStatus> status();
  std::optional<ExitStatus> waitFor(Milliseconds timeout);

  /// Sends a signal to the process alone. Nothing happens once it has ended.
  void signal(int number);

  /// SIGTERM to the group, SIGKILL when it is still there after the grace; then what is left of the group is
  /// killed. Returns how the process ended.
  std::optional<ExitStatus> end(Milliseconds grace = Milliseconds{2000});

  /// Everything written so far; empty when nothing went to a file.
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

/// Starts the program as the leader of a new process group and returns its process id; throws HarnessError
/// when it cannot be executed. ChildProcess is the owner to use.
pid_t spawn(const Launch& launch);

}  // namespace tilwin::desktop
