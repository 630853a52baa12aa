#pragma once

#import <Foundation/Foundation.h>

#include "platform/macos/support/Held.h"
#include "platform/macos/support/NotificationObserver.h"
#include "platform/ports/MainQueue.h"

namespace tilwin::macos {

/// Stops the main queue with exit status 0 on SIGTERM, SIGINT or SIGHUP, so that what is pending is saved.
/// The queue must outlive this. Main thread; one at a time, as signals belong to the process. Where no pipe
/// can be made, these signals end the process as they do by default. Source: sigaction(2), NSFileHandle.
class MacStopSignals {
public:
  explicit MacStopSignals(MainQueue& queue);
  MacStopSignals(const MacStopSignals&) = delete;
  MacStopSignals& operator=(const MacStopSignals&) = delete;
  ~MacStopSignals();

private:
  Held<NSFileHandle*> readEnd_;
  Held<NSFileHandle*> writeEnd_;
  NotificationObserver arrival_;
};

}  // namespace tilwin::macos
