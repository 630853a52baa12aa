#include "platform/macos/support/NotificationObserver.h"

#include <utility>

namespace tilwin::macos {

NotificationObserver::NotificationObserver(NSNotificationCenter* center, NSString* name,
                                           std::function<void()> handler)
    : center_(retained(center)),
      token_(retained([center addObserverForName:name
                                          object:nil
                                           queue:nil
                                      usingBlock:^(NSNotification*) {
                                        handler();
                                      }])) {}

NotificationObserver::~NotificationObserver() { [center_.get() removeObserver:token_.get()]; }

}  // namespace tilwin::macos
