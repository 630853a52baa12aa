#pragma once

#include "tests/macos/Introduced.h"

/// AppKit, macOS 10.6. GNUstep's workspace has no such method.
@interface NSWorkspace (FileViewer)
- (void)activateFileViewerSelectingURLs:(NSArray*)fileURLs INTRODUCED(10.6);
@end
