#include "platform/macos/support/Action.h"

#include <utility>

@implementation TWAction

- (void)perform:(id)sender {
  // AppKit empties its pool after events only, not after timers.
  const tilwin::macos::AutoreleasePool pool;
  // Held here, as the handler may release this object.
  const auto keptAlive = tilwin::macos::retained(self);
  handler(sender);
}

@end

namespace tilwin::macos {

Held<TWAction*> action(std::function<void(id sender)> handler) {
  auto made = owned([[TWAction alloc] init]);
  made.get()->handler = std::move(handler);
  return made;
}

}  // namespace tilwin::macos
