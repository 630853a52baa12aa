#pragma once

#import <Foundation/Foundation.h>

#include <optional>
#include <string>
#include <string_view>

namespace tilwin::macos {

/// An autoreleased string. Bytes that are not UTF-8 give an empty one.
[[nodiscard]] inline NSString* text(std::string_view utf8) {
  NSString* const string = [[[NSString alloc] initWithBytes:utf8.data()
                                                     length:utf8.size()
                                                   encoding:NSUTF8StringEncoding] autorelease];
  return string == nil ? @"" : string;
}

/// UTF-8; empty for nil.
[[nodiscard]] inline std::string utf8(NSString* string) {
  const char* const bytes = [string UTF8String];
  return bytes == nullptr ? std::string() : std::string(bytes);
}

/// The same, but nothing for nil.
[[nodiscard]] inline std::optional<std::string> utf8IfAny(NSString* string) {
  return string == nil ? std::nullopt : std::optional(utf8(string));
}

}  // namespace tilwin::macos
