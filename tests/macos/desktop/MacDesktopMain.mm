// For adapters that need AppKit: starts a desktop, then the tests as an application on it.

#import <AppKit/AppKit.h>
#include <gtest/gtest.h>

#include "platform/macos/support/Held.h"
#include "tests/macos/desktop/MacDesktop.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const tilwin::macos::MacDesktop desktop;
  const tilwin::macos::AutoreleasePool pool;
  [NSApplication sharedApplication];
  [NSApp finishLaunching];
  return RUN_ALL_TESTS();
}
