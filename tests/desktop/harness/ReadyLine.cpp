#include "tests/desktop/harness/ReadyLine.h"

#include <poll.h>
#include <unistd.h>

#include <array>

#include "tests/desktop/harness/Descriptor.h"
#include "tests/desktop/harness/HarnessError.h"

namespace tilwin::desktop {

namespace {

/// The first line, or empty text when the other end closes or time runs out before its end.
std::string readLine(int fd, Milliseconds timeout) {
  const auto until = Clock::now() + timeout;
  std::string text;
  while (text.find('\n') == std::string::npos) {
    const auto left = std::chrono::ceil<Milliseconds>(until - Clock::now());
    pollfd ready{fd, POLLIN, 0};
    if (left.count() <= 0 || poll(&ready, 1, static_cast<int>(left.count())) <= 0) return {};
    std::array<char, 256> some{};
    const ssize_t got = read(fd, some.data(), some.size());
    if (got <= 0) return {};
    text.append(some.data(), static_cast<std::size_t>(got));
  }
  return text.substr(0, text.find('\n'));
}

}  // namespace

ReadyProcess startReady(Launch launch, Milliseconds timeout, int descriptor) {
  Pipe pipe = Pipe::make();
  launch.descriptors[descriptor] = pipe.writeEnd.number();
  ReadyProcess ready{ChildProcess::start(launch), {}};
  pipe.writeEnd.close();
  ready.line = readLine(pipe.readEnd.number(), timeout);
  if (ready.line.empty()) {
    throw HarnessError(launch.argv.front() + " did not start:\n" + lastLines(ready.process.output(), 12));
  }
  return ready;
}

}  // namespace tilwin::desktop
