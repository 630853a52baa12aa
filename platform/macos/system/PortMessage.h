#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <string_view>

#include "platform/macos/support/CFOwned.h"

namespace tilwin::macos {

/// The messages between the program and those who command it, by their number.
namespace port_message {

inline constexpr SInt32 command = 0;  ///< a request of `CommandWire`; answered by a `CommandAnswer`
inline constexpr SInt32 watch =
    1;  ///< the name of a port that takes lines; answered by no bytes, or not at all
inline constexpr SInt32 line = 2;  ///< to a watcher: one line
inline constexpr SInt32 end = 3;   ///< to a watcher: no more lines will come

}  // namespace port_message

/// The name of the running instance's port among those of the user's session.
inline constexpr std::string_view commandPort = "org.tilwin.Tilwin.commands";

[[nodiscard]] inline CFOwned<CFDataRef> dataOf(std::string_view bytes) {
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): the interface wants unsigned bytes
  return created(CFDataCreate(kCFAllocatorDefault, reinterpret_cast<const UInt8*>(bytes.data()),
                              static_cast<CFIndex>(bytes.size())));
}

/// Valid as long as the data; empty for null.
[[nodiscard]] inline std::string_view bytesOf(CFDataRef data) {
  if (data == nullptr) return {};
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): see above
  return {reinterpret_cast<const char*>(CFDataGetBytePtr(data)),
          static_cast<std::size_t>(CFDataGetLength(data))};
}

}  // namespace tilwin::macos
