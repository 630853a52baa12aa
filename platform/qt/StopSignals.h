#pragma once

#include "platform/ports/MainQueue.h"
#include "platform/qt/QtMainQueue.h"

namespace tilwin::qt {

/// Stops the main queue with exit status 0 on SIGTERM, SIGINT or SIGHUP. Blocks these signals for the calling
/// thread and for threads created later, so create it before any other thread; they stay blocked after it is
/// destroyed. The queue must outlive this and must not run after it. Source: signalfd(2).
class StopSignals {
public:
  explicit StopSignals(QtMainQueue& queue);
  StopSignals(const StopSignals&) = delete;
  StopSignals& operator=(const StopSignals&) = delete;
  ~StopSignals();

private:
  int descriptor_ = -1;
};

}  // namespace tilwin::qt
