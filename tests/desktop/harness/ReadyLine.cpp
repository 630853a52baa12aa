#include "tests/desktop/harness/ReadyLine.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <utility>

#include "tests/desktop/harness/HarnessError.h"

namespace tilwin::desktop {

namespace {

class Pipe {
public:
  Pipe() {
    if (pipe2(ends_.data(), O_CLOEXEC) != 0) throw HarnessError("no pipe to be had");
  }
  ~Pipe() {
    close(ends_[0]);
    closeWriteEnd();
  }
  Pipe(const Pipe&) = delete;
  Pipe& operator=(const Pipe&) = delete;

  int readEnd() const { return ends_[0]; }
  int writeEnd() const { return ends_[1]; }
  void closeWriteEnd() {
    if (ends_[1] >= 0) close(std::exchange(ends_[1], -1));
  }

private:
  std::array<int, 2> ends_{-1, -1};
};

/// The first line, or empty text when the other end closes or time runs out before its end.
std::string readLine(int fd, Milliseconds timeout) {
  const auto until = Clock::now() + timeout;
  std::string text;
  while (text.find('\n') == std::string::npos) {
    const auto left = std::chrono::ceil<Milliseconds>(until - Clock::now());
    pollfd ready{fd, POLLIN, 0};
    if (left.count() <= 0 || poll(&ready, 1, static_cast<int>(left.count())) <= 0) return {};
    char some[256];
    const ssize_t got = read(fd, some, sizeof some);
    if (got <= 0) return {};
    text.append(some, static_cast<std::size_t>(got));
  }
  return text.substr(0, text.find('\n'));
}

}  // namespace

ReadyProcess startReady(Launch launch, Milliseconds timeout) {
  Pipe pipe;
  launch.descriptors[readyDescriptor] = pipe.writeEnd();
  ReadyProcess ready{ChildProcess::start(launch), {}};
  pipe.closeWriteEnd();
  ready.line = readLine(pipe.readEnd(), timeout);
  if (ready.line.empty()) {
    throw HarnessError(launch.argv.front() + " did not start:\n" + lastLines(ready.process.output(), 12));
  }
  return ready;
}

}  // namespace tilwin::desktop
