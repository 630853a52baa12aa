// What becomes of the keyboard focus, and of keys that mean something to the window.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/macos/settings/FieldView.h"
#include "platform/macos/settings/FormWindow.h"
#include "platform/macos/settings/Sidebar.h"
#include "tests/contract/SampleForm.h"
#include "tests/macos/settings/MacSettingsDriver.h"
#include "tests/macos/settings/OpenSettings.h"

namespace tilwin::macos {
namespace {

namespace keys = contract::keys;

class MacSettingsFocus : public OpenSettings {
protected:
  static TWFormWindow* frame() { return static_cast<TWFormWindow*>(MacSettingsDriver::frame()); }
  static NSView* keyViewOf(const std::string& id) {
    return [static_cast<ControlView*>(MacSettingsDriver::control(id)) keyView];
  }
  static NSView* sidebar() {
    for (NSView* view : visibleViews()) {
      if ([view isKindOfClass:[TWSidebar class]]) return view;
    }
    return nil;
  }
  static NSView* chosenSection() {
    for (NSView* view : visibleViewsIn(sidebar())) {
      if ([view isKindOfClass:[TWSectionButton class]] && [static_cast<TWSectionButton*>(view) isChosen])
        return view;
    }
    return nil;
  }
  /// Whether what is done makes the view draw itself anew.
  template <typename Change>
  static bool isRedrawnBy(NSView* view, Change change) {
    [frame() displayIfNeeded];
    EXPECT_FALSE([view needsDisplay]);
    change();
    return [view needsDisplay];
  }
  static NSTextView* editor() { return static_cast<NSTextView*>([frame() firstResponder]); }
};

}  // namespace

TEST_F(MacSettingsFocus, WhatShowsItIsDrawnAnewWhenItComesAndGoes) {
  open("areas");
  NSView* const keys = keyViewOf("area1.keys");
  EXPECT_TRUE(isRedrawnBy(keys, [&] { [frame() makeFirstResponder:keys]; }));
  EXPECT_TRUE(isRedrawnBy(keys, [&] { [frame() makeFirstResponder:nil]; }));
  NSView* const section = chosenSection();
  EXPECT_TRUE(isRedrawnBy(section, [&] { [frame() makeFirstResponder:sidebar()]; }));
  EXPECT_TRUE(isRedrawnBy(section, [&] { [frame() makeFirstResponder:keys]; }));
}

TEST_F(MacSettingsFocus, WhatShowsItIsDrawnAnewWhenTheWindowGetsOrLosesTheKeyboard) {
  open("areas");
  for (NSView* focused : {sidebar(), keyViewOf("area1.keys"), keyViewOf("area1.name")}) {
    [frame() makeFirstResponder:focused];
    NSView* const shown = focused == sidebar() ? chosenSection() : focused;
    EXPECT_TRUE(isRedrawnBy(shown, [&] { [frame() windowDidResignKey:nil]; }));
    EXPECT_TRUE(isRedrawnBy(shown, [&] { [frame() windowDidBecomeKey:nil]; }));
  }
}

TEST_F(MacSettingsFocus, AHeldTabKeyGoesOn) {
  open("areas");
  driver.focus("area1.name");
  driver.holdUntilItRepeats({keys::tab, 0});
  EXPECT_EQ(driver.focused(), "area1.delete");
}

TEST_F(MacSettingsFocus, OnlyAPlainSlashGoesToTheSearchField) {
  open("shortcuts");
  for (const auto modifier : {HotKeySpec::option, HotKeySpec::control}) {
    driver.pressKeys({keys::slash, modifier});
    EXPECT_NE(driver.focused(), "search");
  }
  driver.holdUntilItRepeats({keys::slash, 0});
  EXPECT_EQ(driver.focused(), "search");
}

TEST_F(MacSettingsFocus, AHeldEscapeKeyEmptiesTheSearchFieldWithoutClosingTheWindow) {
  open("shortcuts");
  driver.focus("search");
  driver.type("up");
  events.clear();
  driver.holdUntilItRepeats({keys::escape, 0});
  EXPECT_EQ(driver.text("search"), "");
  EXPECT_EQ(events, (std::vector<FormEvent>{form::TextChanged{"search", ""}}));
  EXPECT_TRUE(driver.window().isOpen());
}

TEST_F(MacSettingsFocus, WhatCompletesWordsClosesTheWindowForTheEscapeKeyOnly) {
  open("areas");
  driver.focus("area1.name");
  auto* const field = static_cast<TWFieldView*>(MacSettingsDriver::control("area1.name"));
  EXPECT_FALSE([field control:[field field] textView:editor() doCommandBySelector:@selector(complete:)]);
  EXPECT_TRUE(driver.window().isOpen());
  EXPECT_TRUE([field control:[field field]
                    textView:editor()
         doCommandBySelector:@selector(cancelOperation:)]);
  EXPECT_FALSE(driver.window().isOpen());
}

TEST_F(MacSettingsFocus, TheEscapeKeyMayComeAsACommand) {
  open("areas");
  [frame() makeFirstResponder:sidebar()];
  EXPECT_TRUE([NSApp sendAction:@selector(cancelOperation:) to:nil from:nil]);
  EXPECT_FALSE(driver.window().isOpen());
}

TEST_F(MacSettingsFocus, LineBreaksInAFieldAreReportedAsSpaces) {
  open("shortcuts");
  driver.focus("search");
  [editor() insertText:@"up\nand\ndown"];
  EXPECT_EQ(events, (std::vector<FormEvent>{form::TextChanged{"search", "up and down"}}));
}

TEST_F(MacSettingsFocus, TextThatIsShownInAnEditedFieldIsNotReported) {
  open("areas");
  driver.focus("area1.name");
  auto form = contract::sampleForm("areas");
  contract::findField(form, "area1.name")->text = "Other\nname";
  driver.window().update(form);
  EXPECT_EQ(driver.text("area1.name"), "Other\nname");
  EXPECT_TRUE(events.empty());
}

}  // namespace tilwin::macos
