
#include <fcntl.h>
#include <linux/close_range.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>

#include "tests/desktop/harness/ChildProcess.h"
#include "tests/desktop/harness/Descriptor.h"
#include "tests/desktop/harness/HarnessError.h"

namespace tilwin::desktop {

namespace {

/// Everything the child needs between fork and exec, where nothing may be allocated.
struct Prepared {
  std::vector<std::string> variables;
  std::vector<char*> argv;
  std::vector<char*> environment;
  std::vector<std::pair<int, int>> descriptors;
  const char* folder;
  int output;
  int error;
  int report;
  int deathSignal;
  pid_t parent;
};

Descriptor openForAppending(const std::filesystem::path& file) {
  const char* path = file.empty() ? "/dev/null" : file.c_str();
  Descriptor opened(open(path, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0644));
  if (!opened) throw HarnessError("cannot write " + file.string() + ": " + std::strerror(errno));
  return opened;
}

std::vector<char*> pointers(const std::vector<std::string>& texts) {
  std::vector<char*> result;
  result.reserve(texts.size() + 1);
  for (const auto& text : texts) result.push_back(const_cast<char*>(text.c_str()));
  result.push_back(nullptr);
  return result;
}

[[noreturn]] void fail(const Prepared& prepared) {
  const int reason = errno;
  [[maybe_unused]] const auto written = write(prepared.report, &reason, sizeof reason);
  _exit(127);
}

void takeDescriptors(Prepared& prepared) {
  close_range(3, ~0U, CLOSE_RANGE_CLOEXEC);
  const int input = open("/dev/null", O_RDONLY | O_CLOEXEC);
  dup2(input, STDIN_FILENO);
  dup2(prepared.output, STDOUT_FILENO);
  dup2(prepared.error, STDERR_FILENO);
  // Out of the way of every wanted number first, or one could overwrite another's source.
  prepared.report = fcntl(prepared.report, F_DUPFD_CLOEXEC, 200);
  for (auto& [wanted, ours] : prepared.descriptors) ours = fcntl(ours, F_DUPFD_CLOEXEC, 200);
  for (const auto& [wanted, ours] : prepared.descriptors) {
    if (dup2(ours, wanted) < 0) fail(prepared);
  }
}

[[noreturn]] void becomeProgram(Prepared& prepared) {
  setpgid(0, 0);
  prctl(PR_SET_PDEATHSIG, prepared.deathSignal);
  if (getppid() != prepared.parent) _exit(127);
  sigset_t none;
  sigemptyset(&none);
  sigprocmask(SIG_SETMASK, &none, nullptr);
  std::signal(SIGPIPE, SIG_DFL);
  takeDescriptors(prepared);
  if (chdir(prepared.folder) != 0) fail(prepared);
  execvpe(prepared.argv.front(), prepared.argv.data(), prepared.environment.data());
  fail(prepared);
}

/// The error number that the child reported before exec, or 0 once the exec has closed its end.
int reportedFailure(int fd) {
  int reason = 0;
  ssize_t got = 0;
  do {
    got = read(fd, &reason, sizeof reason);
  } while (got < 0 && errno == EINTR);
  return got == sizeof reason ? reason : 0;
}

}  // namespace

pid_t spawn(const Launch& launch) {
  if (launch.argv.empty()) throw HarnessError("no program to start");
  Pipe report = Pipe::make();
  const Descriptor output = openForAppending(launch.outputFile);
  const Descriptor error = launch.errorFile.empty() ? Descriptor() : openForAppending(launch.errorFile);
  Prepared prepared{launch.environment.strings(),
                    pointers(launch.argv),
                    {},
                    {launch.descriptors.begin(), launch.descriptors.end()},
                    launch.workingFolder.c_str(),
                    output.number(),
                    error ? error.number() : output.number(),
                    report.writeEnd.number(),
                    launch.deathSignal,
                    getpid()};
  prepared.environment = pointers(prepared.variables);
  const pid_t pid = fork();
  if (pid == 0) becomeProgram(prepared);
  if (pid > 0) setpgid(pid, pid);
  report.writeEnd.close();
  const int failure = pid < 0 ? errno : reportedFailure(report.readEnd.number());
  if (failure == 0) return pid;
  if (pid > 0) waitpid(pid, nullptr, 0);
  throw HarnessError("cannot start " + launch.argv.front() + ": " + std::strerror(failure));
}

}  // namespace tilwin::desktop
