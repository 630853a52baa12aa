#include "platform/macos/support/KeyObserver.h"

#include <utility>

@implementation TWKeyObserver

- (void)observeValueForKeyPath:(NSString*)keyPath
                      ofObject:(id)object
                        change:(NSDictionary*)change
                       context:(void*)context {
  (void)keyPath, (void)object, (void)change, (void)context;
  // Held here, as the handler may release this object.
  const auto keptAlive = tilwin::macos::retained(self);
  handler();
}

@end

namespace tilwin::macos {

KeyObserver::KeyObserver(NSObject* object, NSString* key, std::function<void()> handler)
    : object_(retained(object)), key_(retained(key)), observer_(owned([[TWKeyObserver alloc] init])) {
  observer_.get()->handler = std::move(handler);
  [object addObserver:observer_.get()
           forKeyPath:key
              options:NSKeyValueObservingOptionInitial | NSKeyValueObservingOptionNew
              context:nullptr];
}

KeyObserver::~KeyObserver() { [object_.get() removeObserver:observer_.get() forKeyPath:key_.get()]; }

}  // namespace tilwin::macos
