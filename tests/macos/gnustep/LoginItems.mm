// The system's login items. As there, it is an error to register twice, to unregister what is not registered,
// and to register what the user has to approve.

#include "tests/macos/gnustep/LoginItems.h"

#include "platform/macos/support/Text.h"

namespace tilwin::macos {
namespace {

bool fails(NSError** error, const std::string& why) {
  NSDictionary* const info = [NSDictionary dictionaryWithObject:text(why) forKey:NSLocalizedDescriptionKey];
  if (error != nullptr) *error = [NSError errorWithDomain:@"SMAppServiceErrorDomain" code:1 userInfo:info];
  return false;
}

bool add(NSError** error) {
  auto& items = loginItems();
  if (!items.refusal.empty()) return fails(error, items.refusal);
  if (items.status == SMAppServiceStatusEnabled) return fails(error, "Job already registered");
  items.status = items.granted;
  return items.status == SMAppServiceStatusEnabled || fails(error, "Operation not permitted");
}

bool remove(NSError** error) {
  auto& items = loginItems();
  if (!items.refusal.empty()) return fails(error, items.refusal);
  if (items.status == SMAppServiceStatusNotRegistered || items.status == SMAppServiceStatusNotFound) {
    return fails(error, "Job not found");
  }
  items.status = SMAppServiceStatusNotRegistered;
  return true;
}

}  // namespace

LoginItems& loginItems() {
  static LoginItems items;
  return items;
}

}  // namespace tilwin::macos

@implementation SMAppService

+ (instancetype)mainAppService {
  return [[[self alloc] init] autorelease];
}
- (BOOL)registerAndReturnError:(NSError**)error {
  return tilwin::macos::add(error) ? YES : NO;
}
- (BOOL)unregisterAndReturnError:(NSError**)error {
  return tilwin::macos::remove(error) ? YES : NO;
}
- (SMAppServiceStatus)status {
  return tilwin::macos::loginItems().status;
}

@end
