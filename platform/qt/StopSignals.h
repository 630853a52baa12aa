#pragma once

#include "platform/ports/MainQueue.h"
#include "platform/qt/QtMainQueue.h"

namespace tilwin::qt {

/// Stops the main queue with exit status 0 on SIGTERM, SIGINT or SIGHUP, once they are blocked. The queue
/// must outlive this and must not run after it. Source: signalfd(2).
class StopSignals {
public:
  /// Blocks these signals for the calling thread, and for threads and processes it creates later. To be
  /// called before there is another thread, so before there is a Qt application.
  static void block();
  /// For a child process, which should not inherit that. May be called between fork and exec.
  static void unblock();

  explicit StopSignals(QtMainQueue& queue);
  StopSignals(const StopSignals&) = delete;
  StopSignals& operator=(const StopSignals&) = delete;
  ~StopSignals();

private:
  int descriptor_ = -1;
};

}  // namespace tilwin::qt
