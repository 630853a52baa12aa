#pragma once

#import <Foundation/Foundation.h>

#include "platform/macos/support/Held.h"
#include "platform/ports/UpdateFramework.h"

/// What is used of Sparkle 2. The program is built without it; its classes are looked up by name.

@protocol TWSparkleUpdater <NSObject>
- (void)setHttpHeaders:(NSDictionary*)headers;
- (BOOL)startUpdater:(NSError**)error;
/// Can be observed by its key.
- (BOOL)canCheckForUpdates;
@end

@protocol TWSparkleController <NSObject>
- (id)initWithStartingUpdater:(BOOL)startsNow
              updaterDelegate:(id)updaterDelegate
           userDriverDelegate:(id)userDriverDelegate;
- (id<TWSparkleUpdater>)updater;
- (void)checkForUpdates:(id)sender;
@end

namespace tilwin::macos {

/// Sparkle, if this program's bundle has it among its private frameworks. Main thread only.
class MacUpdateFramework final : public UpdateFramework {
public:
  explicit MacUpdateFramework(NSBundle* bundle) : bundle_(retained(bundle)) {}

  /// Loads the framework. It reads the feed from the information dictionary itself. Null if the bundle has no
  /// such framework, or one that cannot be loaded or lacks the class.
  [[nodiscard]] std::unique_ptr<UpdateController> createController(const std::string& feed) override;

private:
  Held<NSBundle*> bundle_;
};

}  // namespace tilwin::macos
