#include "platform/qt/StopSignals.h"

#include <sys/signalfd.h>
#include <unistd.h>

#include <csignal>

namespace tilwin::qt {

namespace {

sigset_t stopSignals() {
  sigset_t signals;
  sigemptyset(&signals);
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) sigaddset(&signals, signal);
  return signals;
}

}  // namespace

void StopSignals::block() {
  const sigset_t signals = stopSignals();
  sigprocmask(SIG_BLOCK, &signals, nullptr);
}

void StopSignals::unblock() {
  const sigset_t signals = stopSignals();
  sigprocmask(SIG_UNBLOCK, &signals, nullptr);
}

StopSignals::StopSignals(QtMainQueue& queue) {
  const sigset_t signals = stopSignals();
  descriptor_ = signalfd(-1, &signals, SFD_NONBLOCK | SFD_CLOEXEC);
  queue.watch(descriptor_, [this, &queue] {
    signalfd_siginfo received{};
    if (read(descriptor_, &received, sizeof received) == sizeof received) queue.stop(0);
  });
}

StopSignals::~StopSignals() { close(descriptor_); }

}  // namespace tilwin::qt
