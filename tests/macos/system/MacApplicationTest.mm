#include "platform/macos/system/MacApplication.h"

#import <AppKit/AppKit.h>
#include <gtest/gtest.h>

namespace tilwin::macos {

void launch() {
  [[NSNotificationCenter defaultCenter] postNotificationName:NSApplicationDidFinishLaunchingNotification
                                                      object:NSApp];
}

TEST(MacApplication, IsAnAgentBeforeItReportsItsLaunch) {
  [NSApp setActivationPolicy:NSApplicationActivationPolicyRegular];
  MacApplication application;
  NSApplicationActivationPolicy atLaunch = NSApplicationActivationPolicyRegular;
  application.onLaunched([&] { atLaunch = [NSApp activationPolicy]; });
  launch();
  EXPECT_EQ(atLaunch, NSApplicationActivationPolicyAccessory);
}

TEST(MacApplication, ReportsThatItWasStartedAgainAndOpensNoWindowOfItsOwn) {
  MacApplication application;
  int times = 0;
  application.onReopened([&times] { ++times; });
  EXPECT_FALSE([[NSApp delegate] applicationShouldHandleReopen:NSApp hasVisibleWindows:NO]);
  EXPECT_EQ(times, 1);
}

TEST(MacApplication, ReportsNothingOnceItIsGone) {
  int times = 0;
  {
    MacApplication application;
    application.onLaunched([&times] { ++times; });
  }
  launch();
  EXPECT_EQ(times, 0);
}

}  // namespace tilwin::macos
