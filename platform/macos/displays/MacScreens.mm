#include "platform/macos/displays/MacScreens.h"

#import <AppKit/AppKit.h>

namespace tilwin::macos {
namespace {

ScreenRect screenRect(NSRect rect) {
  return {rect.origin.x, rect.origin.y, rect.size.width, rect.size.height};
}

std::optional<std::uint32_t> number(NSScreen* of) {
  id const entry = [[of deviceDescription] objectForKey:@"NSScreenNumber"];
  return [entry isKindOfClass:[NSNumber class]] ? std::optional([entry unsignedIntValue]) : std::nullopt;
}

}  // namespace

std::vector<Screen> MacScreens::screens() {
  std::vector<Screen> result;
  for (NSScreen* screen in [NSScreen screens]) {
    result.push_back({.frame = screenRect([screen frame]),
                      .visibleFrame = screenRect([screen visibleFrame]),
                      .number = number(screen)});
  }
  return result;
}

double firstScreenHeight() {
  NSScreen* const first = [[NSScreen screens] firstObject];
  return first == nil ? 0 : [first frame].size.height;
}

}  // namespace tilwin::macos
