#import <AppKit/AppKit.h>

#include "platform/macos/support/Held.h"
#include "platform/macos/support/Text.h"
#include "tests/macos/gnustep/ShownElsewhere.h"

namespace tilwin::macos {

ShownElsewhere& shownElsewhere() {
  static ShownElsewhere shown;
  return shown;
}

}  // namespace tilwin::macos

@implementation NSWorkspace (FileViewer)

- (void)activateFileViewerSelectingURLs:(NSArray*)fileURLs {
  for (NSURL* url in fileURLs) {
    tilwin::macos::shownElsewhere().selected.push_back(tilwin::macos::utf8([url absoluteString]));
  }
}

@end

/// GNUstep's `openURL:` waits for ever for a program for an address that it does not know.
@interface TWRecordingWorkspace : NSWorkspace
@end

@implementation TWRecordingWorkspace

+ (void)load {
  const tilwin::macos::AutoreleasePool pool;
  method_setImplementation(class_getInstanceMethod([NSWorkspace class], @selector(openURL:)),
                           class_getMethodImplementation(self, @selector(openURL:)));
}

- (BOOL)openURL:(NSURL*)url {
  auto& shown = tilwin::macos::shownElsewhere();
  shown.opened.push_back(tilwin::macos::utf8([url absoluteString]));
  return shown.canOpen ? YES : NO;
}

@end
