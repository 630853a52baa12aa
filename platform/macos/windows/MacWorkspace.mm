#include "platform/macos/windows/MacWorkspace.h"

#import <AppKit/AppKit.h>

#include "platform/macos/support/Text.h"

namespace tilwin::macos {
namespace {

RunningApplication described(NSRunningApplication* application) {
  return {.processID = [application processIdentifier],
          .bundleIdentifier = utf8IfAny([application bundleIdentifier]),
          .localizedName = utf8IfAny([application localizedName]),
          .isRegular = [application activationPolicy] == NSApplicationActivationPolicyRegular};
}

}  // namespace

std::optional<RunningApplication> MacWorkspace::frontmostApplication() {
  NSRunningApplication* const front = [[NSWorkspace sharedWorkspace] frontmostApplication];
  return front == nil ? std::nullopt : std::optional(described(front));
}

std::vector<RunningApplication> MacWorkspace::runningApplications() {
  std::vector<RunningApplication> result;
  for (NSRunningApplication* each in [[NSWorkspace sharedWorkspace] runningApplications]) {
    result.push_back(described(each));
  }
  return result;
}

std::optional<std::string> MacWorkspace::ownBundleIdentifier() {
  return utf8IfAny([own_.get() bundleIdentifier]);
}

}  // namespace tilwin::macos
