#include "tests/desktop/harness/ChildProcess.h"

#include <sys/wait.h>

#include <fstream>
#include <sstream>
#include <utility>

#include "tests/desktop/harness/ExitGuard.h"
#include "tests/desktop/harness/HarnessError.h"

namespace tilwin::desktop {

namespace {

std::string readFile(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  std::ostringstream text;
  text << stream.rdbuf();
  return text.str();
}

/// How the child ended, leaving it unreaped, so that its number (and its group's) belongs to nobody else.
std::optional<ExitStatus> peekStatus(pid_t pid) {
  siginfo_t info{};
  if (waitid(P_PID, static_cast<id_t>(pid), &info, WEXITED | WNOHANG | WNOWAIT) != 0 || info.si_pid == 0) {
    return std::nullopt;
  }
  if (info.si_code == CLD_EXITED) return ExitStatus{info.si_status, std::nullopt};
  return ExitStatus{std::nullopt, info.si_status};
}

}  // namespace

ChildProcess ChildProcess::start(const Launch& launch) {
  const pid_t pid = spawn(launch);
  if (!ExitGuard::enrolGroup(pid)) {
    kill(-pid, SIGKILL);
    throw HarnessError("this process is ending; " + launch.argv.front() + " not started");
  }
  return ChildProcess(pid, launch);
}

ChildProcess::ChildProcess(pid_t pid, const Launch& launch)
    : pid_(pid),
      handle_(pid),
      outputFile_(launch.outputFile),
      errorFile_(launch.errorFile.empty() ? launch.outputFile : launch.errorFile) {}

ChildProcess::ChildProcess(ChildProcess&& other) noexcept { *this = std::move(other); }

ChildProcess& ChildProcess::operator=(ChildProcess&& other) noexcept {
  if (this == &other) return *this;
  end();
  pid_ = std::exchange(other.pid_, 0);
  handle_ = std::move(other.handle_);
  status_ = std::exchange(other.status_, std::nullopt);
  outputFile_ = std::move(other.outputFile_);
  errorFile_ = std::move(other.errorFile_);
  return *this;
}

ChildProcess::~ChildProcess() { end(); }

bool ChildProcess::running() { return handle_ && !status(); }

std::optional<ExitStatus> ChildProcess::status() {
  if (!status_ && handle_) status_ = peekStatus(pid_);
  return status_;
}

std::optional<ExitStatus> ChildProcess::waitFor(Milliseconds timeout) {
  if (handle_ && !status()) handle_.waitForEnd(timeout);
  return status();
}

void ChildProcess::signal(int number) {
  if (running()) kill(pid_, number);
}

std::optional<ExitStatus> ChildProcess::end(Milliseconds grace) {
  if (!handle_) return status_;
  if (!status()) {
    kill(-pid_, SIGTERM);
    kill(-pid_, SIGCONT);
    waitFor(grace);
  }
  kill(-pid_, SIGKILL);
  while (!waitFor(Milliseconds{1000})) kill(pid_, SIGKILL);
  reap();
  return status_;
}

void ChildProcess::reap() {
  waitpid(pid_, nullptr, 0);
  ExitGuard::strikeGroup(pid_);
  handle_ = {};
}

std::string ChildProcess::output() const { return readFile(outputFile_); }

std::string ChildProcess::errorOutput() const { return readFile(errorFile_); }

std::string lastLines(const std::string& text, std::size_t count) {
  std::size_t from = text.size();
  if (from > 0 && text.back() == '\n') --from;
  for (std::size_t lines = 0; lines < count && from != 0 && from != std::string::npos; ++lines) {
    from = text.rfind('\n', from - 1);
  }
  return from == std::string::npos || from == 0 ? text : text.substr(from + 1);
}

}  // namespace tilwin::desktop
