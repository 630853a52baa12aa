#include "platform/macos/system/MacStopSignals.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

#include "platform/macos/support/RunLoopModes.h"

namespace tilwin::macos {
namespace {

constexpr auto stopSignals = std::to_array<int>({SIGTERM, SIGINT, SIGHUP});

/// Where a signal handler, which can do little else, leaves word.
volatile std::sig_atomic_t wordEnd = -1;

void leaveWord(int /*signal*/) {
  const int error = errno;
  const char word = 0;
  [[maybe_unused]] const auto written = ::write(wordEnd, &word, 1);
  errno = error;
}

void handleStopSignals(void (*handler)(int)) {
  struct sigaction handling {};
  handling.sa_handler = handler;
  handling.sa_flags = SA_RESTART;
  for (const int signal : stopSignals) ::sigaction(signal, &handling, nullptr);
}

}  // namespace

MacStopSignals::MacStopSignals(MainQueue& queue)
    : arrival_([NSNotificationCenter defaultCenter], NSFileHandleDataAvailableNotification,
               [&queue] { queue.stop(0); }) {
  NSPipe* const pipe = [NSPipe pipe];
  if (pipe == nil) return;
  readEnd_ = retained([pipe fileHandleForReading]);
  writeEnd_ = retained([pipe fileHandleForWriting]);
  [readEnd_.get() waitForDataInBackgroundAndNotifyForModes:everyRunLoopMode()];
  wordEnd = [writeEnd_.get() fileDescriptor];
  handleStopSignals(leaveWord);
}

MacStopSignals::~MacStopSignals() {
  handleStopSignals(SIG_DFL);
  wordEnd = -1;
}

}  // namespace tilwin::macos
