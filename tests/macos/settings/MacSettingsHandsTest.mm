// Ways to use the window that not every toolkit has.

#import <AppKit/AppKit.h>
#include <gtest/gtest.h>

#include "platform/macos/support/Held.h"
#include "tests/contract/SampleForm.h"
#include "tests/macos/settings/MacSettingsDriver.h"
#include "tests/macos/settings/OpenSettings.h"

namespace tilwin::macos {

class MacSettingsHands : public OpenSettings {};

TEST_F(MacSettingsHands, AClickOnTheTitleOfACheckBoxFlipsIt) {
  open("behavior");
  NSView* const toggle = MacSettingsDriver::control("drag");
  const NSPoint title = NSMakePoint(60, NSMidY([toggle bounds]));
  Hands([toggle window]).click([toggle convertPoint:title toView:nil]);
  EXPECT_TRUE(driver.settle([this] { return !events.empty(); }));
  ASSERT_EQ(events.size(), 1U);
  EXPECT_TRUE(std::holds_alternative<form::ToggleChanged>(events.front()));
}

TEST_F(MacSettingsHands, AClickBesideTheTitleOfACheckBoxDoesNothing) {
  open("behavior");
  NSView* const toggle = MacSettingsDriver::control("drag");
  const NSRect bounds = [toggle bounds];
  Hands([toggle window])
      .click([toggle convertPoint:NSMakePoint(NSMaxX(bounds) - 10, NSMidY(bounds)) toView:nil]);
  EXPECT_TRUE(events.empty());
}

TEST_F(MacSettingsHands, TheMouseWheelOverASliderScrollsThePage) {
  open("areas");
  NSView* const slider = MacSettingsDriver::control("area1.Left");
  NSClipView* const clip = [[slider enclosingScrollView] contentView];
  const CGFloat before = NSMinY([clip bounds]);
  const NSPoint middle = NSMakePoint(NSMidX([slider bounds]), NSMidY([slider bounds]));
  constexpr int wheelDown = 5;
  macDesktop().input().click(MacSettingsDriver::pixelAt(slider, middle), wheelDown);
  EXPECT_TRUE(driver.settle([&] { return NSMinY([clip bounds]) > before; }));
  EXPECT_TRUE(events.empty());
}

TEST_F(MacSettingsHands, ShiftTabGoesBack) {
  open("areas");
  driver.focus("area1.Top");
  driver.pressKeys({contract::keys::tab, HotKeySpec::shift});
  EXPECT_TRUE(driver.settle([this] { return driver.focused() == "area1.Left"; })) << driver.focused();
}

TEST_F(MacSettingsHands, ASectionThatIsGoneLeavesTheList) {
  open("shortcuts");
  FormModel form = contract::sampleForm("shortcuts");
  std::erase_if(form.sections, [](const FormSection& section) { return section.id == "statistics"; });
  driver.window().update(form);
  EXPECT_EQ(driver.shown(), contract::expectedOf(form));
  EXPECT_EQ(driver.shown().sections.size(), 4U);
}

TEST_F(MacSettingsHands, ASearchFieldThatIsGoneLeavesThePage) {
  open("shortcuts");
  const auto search = retained(MacSettingsDriver::control("search"));
  EXPECT_EQ([search.get() window], MacSettingsDriver::frame());
  FormModel form = contract::sampleForm("shortcuts");
  contract::sectionIn(form, "shortcuts").search.reset();
  driver.window().update(form);
  EXPECT_EQ([search.get() window], nil);
  driver.pressKeys({contract::keys::slash, 0});
  EXPECT_EQ(driver.focused(), "");
}

}  // namespace tilwin::macos
