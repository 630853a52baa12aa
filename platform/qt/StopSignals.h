#pragma once

#include "platform/ports/MainQueue.h"
#include "platform/qt/QtMainQueue.h"

namespace tilwin::qt {

/// Ends the main queue in good order when the session or a person at a terminal asks for it: SIGTERM, SIGINT
/// and SIGHUP. Blocks those signals for the process while it lives. The queue must outlive this.
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
