#pragma once

#import <AppKit/AppKit.h>

/// What only a test may ask of the status bar.
@interface TWStatusBar (User)
/// The item that was made last; nil if it is gone.
- (NSStatusItem*)latestItem;
@end

@interface TWStatusItem (User)
- (NSWindow*)window;
/// Closes the open menu and sends the item's action, unless the item is disabled.
- (void)chooseItemAtIndex:(NSInteger)index ofMenu:(NSMenu*)menu;
@end
