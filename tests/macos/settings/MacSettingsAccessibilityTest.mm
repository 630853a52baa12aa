// What the window tells screen readers.

#include <gtest/gtest.h>

#include <string>
#include <variant>

#include "platform/drawing/FormRows.h"
#include "platform/macos/settings/FieldView.h"
#include "platform/macos/settings/Label.h"
#include "platform/macos/settings/Measured.h"
#include "platform/macos/settings/Sidebar.h"
#include "platform/macos/support/Text.h"
#include "tests/contract/SampleForm.h"
#include "tests/macos/gnustep/AccessibilityPosts.h"
#include "tests/macos/settings/MacSettingsDriver.h"

namespace tilwin::macos {
namespace {

std::string nameOf(const FormControl& control) {
  struct Name {
    std::string operator()(const FormToggle& toggle) const { return toggle.title; }
    std::string operator()(const FormButton& button) const {
      return button.label.empty() ? button.title : button.label;
    }
    std::string operator()(const FormSlider& slider) const { return slider.label; }
    std::string operator()(const FormTextField& field) const { return field.label; }
    std::string operator()(const FormRecorder& recorder) const { return recorder.label; }
  };
  return std::visit(Name(), control);
}

NSView* keyViewOf(const std::string& id) {
  return [static_cast<ControlView*>(MacSettingsDriver::control(id)) keyView];
}

std::string labelOf(const std::string& id) { return utf8([keyViewOf(id) accessibilityLabel]); }

NSView* textView(const std::string& text) {
  for (NSView* view : visibleViews()) {
    if ([view isKindOfClass:[TWLabel class]] && [static_cast<TWLabel*>(view) content] == text) return view;
  }
  return nil;
}

}  // namespace

TEST(MacSettingsAccessibility, EveryControlHasItsNameAndTheRemarksOfItsRow) {
  MacSettingsDriver driver;
  for (const FormSection& section : contract::sampleForm().sections) {
    driver.window().show(contract::sampleForm(section.id));
    if (section.search) EXPECT_EQ(labelOf(section.search->id), section.search->label);
    for (const FormGroup& group : section.groups) {
      for (const FormRow& row : group.rows) {
        for (const FormControl& control : row.controls) {
          const std::string id = std::visit([](const auto& any) { return any.id; }, control);
          EXPECT_FALSE(nameOf(control).empty());
          EXPECT_EQ(labelOf(id), nameOf(control));
          EXPECT_EQ(utf8([keyViewOf(id) accessibilityHelp]), drawing::remarkOf(row)) << id;
        }
      }
    }
  }
}

TEST(MacSettingsAccessibility, ARecorderSaysItsKeysAndASliderItsValueInWords) {
  MacSettingsDriver driver;
  driver.window().show(contract::sampleForm("areas"));
  EXPECT_EQ(utf8([keyViewOf("area1.keys") accessibilityValue]), "No shortcut");
  EXPECT_EQ(utf8([keyViewOf("area1.Left") accessibilityValueDescription]), "20%");
  NSView* const picture = MacSettingsDriver::control("area1.picture");
  EXPECT_EQ(utf8([picture accessibilityLabel]), "Area Reading");
  EXPECT_TRUE([picture isAccessibilityElement]);
}

TEST(MacSettingsAccessibility, AnotherShortcutAndAnotherProblemAreToldAtOnce) {
  MacSettingsDriver driver;
  auto form = contract::sampleForm("areas");
  contract::rowIn(form, "area1.keys-row").problem = "It is taken.";
  driver.window().show(form);
  NSView* const keys = keyViewOf("area1.keys");
  NSView* const problem = textView("It is taken.");
  const int keysBefore = accessibilityValueChanges(keys);
  const int problemsBefore = accessibilityValueChanges(problem);
  driver.window().update(form);
  EXPECT_EQ(accessibilityValueChanges(keys), keysBefore);
  EXPECT_EQ(accessibilityValueChanges(problem), problemsBefore);
  contract::findControl<FormRecorder>(form, "area1.keys")->title = "F1";
  contract::rowIn(form, "area1.keys-row").problem = "It is taken, too.";
  driver.window().update(form);
  EXPECT_EQ(accessibilityValueChanges(keys), keysBefore + 1);
  EXPECT_EQ(accessibilityValueChanges(problem), problemsBefore + 1);
}

TEST(MacSettingsAccessibility, TheChosenSectionIsTheOneThatIsOn) {
  MacSettingsDriver driver;
  driver.window().show(contract::sampleForm("areas"));
  int sections = 0;
  for (NSView* view : visibleViews()) {
    if (![view isKindOfClass:[TWSectionButton class]]) continue;
    ++sections;
    const bool isChosen = [static_cast<TWSectionButton*>(view) formId] == "areas";
    EXPECT_EQ([[view accessibilityValue] boolValue] == YES, isChosen);
    EXPECT_TRUE([[view accessibilityRole] isEqualToString:NSAccessibilityRadioButtonRole]);
    EXPECT_FALSE(utf8([view accessibilityLabel]).empty());
  }
  EXPECT_EQ(sections, 5);
}

}  // namespace tilwin::macos
