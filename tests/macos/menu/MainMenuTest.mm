#include "platform/macos/menu/MainMenu.h"

#import <AppKit/AppKit.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/macos/support/Held.h"
#include "tests/macos/desktop/EventLoop.h"
#include "tests/macos/menu/Keys.h"
#include "tests/macos/menu/OnScreen.h"

/// Notes what it is asked to do.
@interface TWKeyWitness : NSView {
@public
  std::vector<std::string> done;
}
@end

@implementation TWKeyWitness

- (BOOL)acceptsFirstResponder {
  return YES;
}
- (void)undo:(id)sender {
  (void)sender;
  done.emplace_back("undo");
}
- (void)redo:(id)sender {
  (void)sender;
  done.emplace_back("redo");
}
- (void)cut:(id)sender {
  (void)sender;
  done.emplace_back("cut");
}
- (void)copy:(id)sender {
  (void)sender;
  done.emplace_back("copy");
}
- (void)paste:(id)sender {
  (void)sender;
  done.emplace_back("paste");
}
- (void)selectAll:(id)sender {
  (void)sender;
  done.emplace_back("selectAll");
}

@end

namespace tilwin::macos {
namespace {

/// It stays, as events may still be about it.
NSWindow* showWindow(NSView* content) {
  NSWindow* const window = [[NSWindow alloc] initWithContentRect:NSMakeRect(300, 300, 200, 100)
                                                       styleMask:NSTitledWindowMask | NSClosableWindowMask
                                                         backing:NSBackingStoreBuffered
                                                           defer:NO];
  [window setReleasedWhenClosed:NO];
  [window setContentView:content];
  [window makeFirstResponder:content];
  [NSApp activateIgnoringOtherApps:YES];
  [window makeKeyAndOrderFront:nil];
  EXPECT_TRUE(runEventLoopUntil([&] { return isOnScreen(window) && [window isKeyWindow]; }));
  return window;
}

}  // namespace

TEST(MainMenu, TheUsualKeysReachTheFocusedViewAndItsWindow) {
  const auto witness = owned([[TWKeyWitness alloc] initWithFrame:NSZeroRect]);
  const auto& done = witness.get()->done;
  NSWindow* const window = showWindow(witness.get());
  installMainMenu();

  for (const char key : {'z', 'x', 'c', 'v', 'a'}) press(keyOf(key, NSCommandKeyMask));
  press(keyOf('z', NSCommandKeyMask | NSShiftKeyMask));
  EXPECT_TRUE(runEventLoopUntil([&] { return done.size() == 6; }, desktop::answerTimeout));
  EXPECT_EQ(done, (std::vector<std::string>{"undo", "cut", "copy", "paste", "selectAll", "redo"}));

  press(keyOf('w', NSCommandKeyMask));
  EXPECT_TRUE(runEventLoopUntil([&] { return ![window isVisible]; }, desktop::answerTimeout));
}

}  // namespace tilwin::macos
