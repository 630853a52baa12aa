#pragma once

#import <AppKit/AppKit.h>

#include <functional>

/// The window of a form, and its own delegate. Escape closes it and "/" asks for the search field, both once
/// however long they are held; Command-F asks for it too. What the Tab key leads to is scrolled into view.
@interface TWFormWindow : NSWindow <NSWindowDelegate> {
@public
  std::function<void()> onClosing;     ///< the user closes it
  std::function<void()> onLosingKeys;  ///< it was the key window, and no longer is
  std::function<bool()> onSearching;   ///< returns whether there is something to search
}
/// A window in the middle of the screen, not shown yet.
- (instancetype)initForForm;
/// Calls none of its functions any more.
- (void)fallSilent;
@end
