#pragma once

#import <Foundation/Foundation.h>

#include <functional>

#include "platform/macos/support/Action.h"
#include "platform/macos/support/Held.h"

namespace tilwin::macos {

/// Calls the handler each time the notification is posted, on the thread that posts it, as long as this
/// lives.
class NotificationObserver {
public:
  NotificationObserver(NSNotificationCenter* center, NSString* name, std::function<void()> handler);
  NotificationObserver(const NotificationObserver&) = delete;
  NotificationObserver& operator=(const NotificationObserver&) = delete;
  ~NotificationObserver();

private:
  Held<NSNotificationCenter*> center_;
  Held<TWAction*> observer_;
};

}  // namespace tilwin::macos
