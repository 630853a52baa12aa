#include <ApplicationServices/ApplicationServices.h>

#include "tests/macos/c/accessibility/AccessiblePrograms.h"
#include "tests/macos/c/objects/Values.h"

using tilwin::macos::c::AccessiblePrograms;

// NOLINTBEGIN(readability-implicit-bool-conversion): the Boolean of the system is a number.
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
// NOLINTEND(readability-implicit-bool-conversion)
