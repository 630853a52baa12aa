#include "platform/macos/windows/MacTrust.h"

#include <ApplicationServices/ApplicationServices.h>

#include "platform/macos/support/CFOwned.h"

namespace tilwin::macos {

bool MacTrust::isTrusted() { return AXIsProcessTrusted() != 0; }

void MacTrust::ask() {
  CFTypeRef option = kAXTrustedCheckOptionPrompt;
  CFTypeRef yes = kCFBooleanTrue;
  const auto options =
      created(CFDictionaryCreate(kCFAllocatorDefault, &option, &yes, 1, &kCFTypeDictionaryKeyCallBacks,
                                 &kCFTypeDictionaryValueCallBacks));
  AXIsProcessTrustedWithOptions(options.get());
}

}  // namespace tilwin::macos
