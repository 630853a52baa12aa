// For adapters that need AppKit: starts a desktop, then the tests as an application on it.

#import <AppKit/AppKit.h>
#include <gtest/gtest.h>

#include <cstdlib>

#include "platform/macos/support/Held.h"
#include "tests/desktop/harness/ExitGuard.h"
#include "tests/macos/desktop/MacDesktop.h"

namespace {

tilwin::desktop::Session* session = nullptr;

/// Gives this process the environment of a program on the desktop.
void enter(const tilwin::desktop::Environment& environment) {
  for (const auto& variable : environment.strings()) {
    const auto equals = variable.find('=');
    ::setenv(variable.substr(0, equals).c_str(), variable.substr(equals + 1).c_str(), 1);
  }
}

}  // namespace

namespace tilwin::macos {

desktop::Session& macDesktop() { return *session; }

}  // namespace tilwin::macos

int main(int argc, char** argv) {
  const tilwin::desktop::EndOnSignal endOnSignal;
  testing::InitGoogleTest(&argc, argv);
  tilwin::desktop::Session desktop;
  session = &desktop;
  enter(desktop.environment());
  const tilwin::macos::AutoreleasePool pool;
  [NSApplication sharedApplication];
  [NSApp finishLaunching];
  return RUN_ALL_TESTS();
}
