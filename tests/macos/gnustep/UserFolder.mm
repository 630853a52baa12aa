#include "tests/macos/gnustep/UserFolder.h"

#import <Foundation/Foundation.h>

#include "platform/macos/support/Held.h"
#include "platform/macos/support/Text.h"

namespace tilwin::macos {

void setUserFolder(const std::filesystem::path& folder) {
  const AutoreleasePool pool;
  const auto configuration = owned([GNUstepConfig(nil) mutableCopy]);
  [configuration.get() setObject:text((folder / "Library").native()) forKey:@"GNUSTEP_USER_DIR_LIBRARY"];
  GNUstepConfig(configuration.get());
}

std::filesystem::path applicationSupportFolder(const std::filesystem::path& userFolder) {
  return userFolder / "Library" / "ApplicationSupport";
}

}  // namespace tilwin::macos
