#pragma once

/// AppKit, macOS 10.6. GNUstep's workspace has no such method.
@interface NSWorkspace (FileViewer)
- (void)activateFileViewerSelectingURLs:(NSArray*)fileURLs;
@end
