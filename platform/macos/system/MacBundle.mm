#include "platform/macos/system/MacBundle.h"

#include <cstring>
#include <system_error>

#include "platform/macos/support/Text.h"

namespace tilwin::macos {
namespace {

bool hasTypeOf(NSNumber* number, NSNumber* sample) {
  return std::strcmp([number objCType], [sample objCType]) == 0;
}

std::optional<Bundle::InformationValue> numberValue(NSNumber* number) {
  if (hasTypeOf(number, [NSNumber numberWithBool:YES])) return bool([number boolValue]);
  if (hasTypeOf(number, @1.5) || hasTypeOf(number, @1.5F)) return std::nullopt;
  return std::int64_t([number longLongValue]);
}

std::optional<Bundle::InformationValue> value(id entry) {
  if ([entry isKindOfClass:[NSString class]]) return utf8(entry);
  if ([entry isKindOfClass:[NSNumber class]]) return numberValue(entry);
  return std::nullopt;
}

}  // namespace

std::optional<std::filesystem::path> MacBundle::applicationSupport() {
  NSURL* const url = [[NSFileManager defaultManager] URLForDirectory:NSApplicationSupportDirectory
                                                            inDomain:NSUserDomainMask
                                                   appropriateForURL:nil
                                                              create:YES
                                                               error:nullptr];
  if (url == nil) return std::nullopt;
  const std::filesystem::path folder([[url path] fileSystemRepresentation]);
  // Not every implementation of Foundation tells that it could not be created.
  std::error_code refusal;
  return std::filesystem::is_directory(folder, refusal) ? std::optional(folder) : std::nullopt;
}

Bundle::Information MacBundle::information() {
  NSDictionary* const entries = [bundle_.get() infoDictionary];
  Information result;
  for (NSString* key in entries) {
    if (auto entry = value([entries objectForKey:key])) result.emplace(utf8(key), *std::move(entry));
  }
  return result;
}

}  // namespace tilwin::macos
