#include <ApplicationServices/ApplicationServices.h>

#include "tests/macos/c/accessibility/AccessiblePrograms.h"
#include "tests/macos/c/objects/Values.h"

using tilwin::macos::c::AccessiblePrograms;

// NOLINTBEGIN(readability-identifier-naming): the names are those of the system.
extern "C" {

const CFStringRef kAXTrustedCheckOptionPrompt =
    tilwin::macos::c::constantString("AXTrustedCheckOptionPrompt");

Boolean AXIsProcessTrusted() {
  auto* const programs = AccessiblePrograms::current();
  return programs != nullptr && programs->tree().isTrusted;
}

Boolean AXIsProcessTrustedWithOptions(CFDictionaryRef options) {
  const bool isTrusted = AXIsProcessTrusted() != 0;
  if (options == nullptr || isTrusted) return isTrusted;
  const CFTypeRef prompt = CFDictionaryGetValue(options, kAXTrustedCheckOptionPrompt);
  auto* const programs = AccessiblePrograms::current();
  if (programs != nullptr && prompt != nullptr && CFEqual(prompt, kCFBooleanTrue)) programs->prompt();
  return false;
}

}  // extern "C"
// NOLINTEND(readability-identifier-naming)
