#pragma once

#import <Foundation/Foundation.h>

#include <functional>

#include "platform/macos/support/Held.h"

/// The target of a control, a menu item or a timer: passes its action on to a function. The action's selector
/// is `perform:`, called on the thread of whoever sends it. Few of AppKit's classes own their target, so
/// someone has to hold it.
@interface TWAction : NSObject {
@public
  std::function<void(id sender)> handler;
}
- (void)perform:(id)sender;
@end

namespace tilwin::macos {

/// The holder returned is its only owner.
[[nodiscard]] Held<TWAction*> action(std::function<void(id sender)> handler);

}  // namespace tilwin::macos
