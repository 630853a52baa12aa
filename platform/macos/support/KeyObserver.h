#pragma once

#import <Foundation/Foundation.h>

#include <functional>

#include "platform/macos/support/Held.h"

/// Receives the changes of a key and calls a function.
@interface TWKeyObserver : NSObject {
@public
  std::function<void()> handler;
}
@end

namespace tilwin::macos {

/// Calls the handler at once, and each time a property of the object changes, on the thread that changes it,
/// as long as this lives. Owns the object.
class KeyObserver {
public:
  KeyObserver(NSObject* object, NSString* key, std::function<void()> handler);
  KeyObserver(const KeyObserver&) = delete;
  KeyObserver& operator=(const KeyObserver&) = delete;
  ~KeyObserver();

private:
  Held<NSObject*> object_;
  Held<NSString*> key_;
  Held<TWKeyObserver*> observer_;
};

}  // namespace tilwin::macos
