#include "platform/macos/support/NotificationObserver.h"

#include <utility>

namespace tilwin::macos {

NotificationObserver::NotificationObserver(NSNotificationCenter* center, NSString* name,
                                           std::function<void()> handler)
    : center_(retained(center)),
      observer_(action([handler = std::move(handler)](id /*notification*/) { handler(); })) {
  [center addObserver:observer_.get() selector:@selector(perform:) name:name object:nil];
}

NotificationObserver::~NotificationObserver() { [center_.get() removeObserver:observer_.get()]; }

}  // namespace tilwin::macos
