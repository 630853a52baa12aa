// What stays in the user's hand while the program changes its form.

#include <algorithm>
#include <string>
#include <variant>

#include "tests/contract/SettingsWindowContract.h"

namespace tilwin::contract {

TEST_P(SettingsWindowContract, RedrawingTheTypedTextLeavesTheCursorAlone) {
  open("areas");
  reaction = [&](const FormEvent& event) { obey(event); };
  driver->focus("area1.name");
  driver->pressKeys({keys::home, 0});
  driver->type("my ");
  EXPECT_EQ(driver->text("area1.name"), "my Reading");
  EXPECT_EQ(driver->selection("area1.name"), (FieldSelection{.cursor = 3}));
  redraw();
  EXPECT_EQ(driver->selection("area1.name"), (FieldSelection{.cursor = 3}));
}

TEST_P(SettingsWindowContract, RedrawingKeepsWhatIsSelected) {
  open("areas");
  driver->focus("area1.name");
  driver->pressKeys({keys::home, 0});
  driver->pressKeys({keys::right, HotKeySpec::shift});
  driver->pressKeys({keys::right, HotKeySpec::shift});
  const FieldSelection selected{.cursor = 2, .start = 0, .length = 2};
  ASSERT_TRUE(comesTo(selected, [&] { return driver->selection("area1.name"); }));
  rowIn(form, "area1.Left-row").title = "Left edge";
  findControl<FormSlider>(form, "area1.Left")->value = 0.4;
  redraw();
  EXPECT_TRUE(showsForm());
  EXPECT_EQ(driver->selection("area1.name"), selected);
  EXPECT_TRUE(hasFocus("area1.name"));
}

TEST_P(SettingsWindowContract, TheProgramMayCorrectATextWhileItIsTyped) {
  open("areas");
  reaction = [&](const FormEvent& event) {
    if (const auto* typed = std::get_if<form::TextChanged>(&event)) {
      findField(form, typed->id)->text = typed->text.substr(0, 9);
    }
    redraw();
  };
  driver->focus("area1.name");
  driver->pressKeys({keys::home, 0});
  driver->type("old ");
  EXPECT_EQ(driver->text("area1.name"), "old Readi");
  EXPECT_EQ(driver->selection("area1.name").cursor, 4);
}

TEST_P(SettingsWindowContract, WhatTheProgramChangesIsShownWithoutAnEvent) {
  open("areas");
  findField(form, "area1.name")->text = "Writing";
  auto& slider = *findControl<FormSlider>(form, "area1.Left");
  slider.value = 0.1;
  slider.caption = "10%";
  pictureIn(form, "area1.picture").tiles = {{{0.1, 0, 0.6, 1}, true}};
  auto& keys = *findControl<FormRecorder>(form, "area1.keys");
  keys.title = "Ctrl+Alt+U";
  redraw();
  EXPECT_EQ(driver->text("area1.name"), "Writing");
  EXPECT_DOUBLE_EQ(driver->sliderPosition("area1.Left"), 0.1);
  EXPECT_EQ(driver->caption("area1.Left"), "10%");
  EXPECT_EQ(driver->tiles("area1.picture"), pictureIn(form, "area1.picture").tiles);
  EXPECT_EQ(driver->buttonTitle("area1.keys"), "Ctrl+Alt+U");
  form.chosenSection = "behavior";
  for (const char* toggle : {"drag", "login"}) {
    auto& found = *findControl<FormToggle>(form, toggle);
    found.isOn = !found.isOn;
  }
  redraw();
  EXPECT_FALSE(driver->isOn("drag"));
  EXPECT_TRUE(driver->isOn("login"));
  EXPECT_TRUE(received({}));
}

TEST_P(SettingsWindowContract, ProblemsAndNotesComeAndGo) {
  open("shortcuts");
  rowIn(form, "leftHalf").problem = "Already set for “Right half”.";
  rowIn(form, "rightHalf").problem.clear();
  rowIn(form, "topHalf").note = "A note.";
  redraw();
  EXPECT_TRUE(showsForm());
  rowIn(form, "leftHalf").problem.clear();
  rowIn(form, "topHalf").note.clear();
  redraw();
  EXPECT_TRUE(showsForm());
}

TEST_P(SettingsWindowContract, RowsAndGroupsAreAddedRemovedAndReordered) {
  open("areas");
  auto& groups = sectionIn(form, "areas").groups;
  std::swap(groups[0], groups[1]);
  redraw();
  EXPECT_TRUE(showsForm());
  std::ranges::reverse(groups[0].rows);
  groups.erase(groups.begin() + 1);
  redraw();
  EXPECT_TRUE(showsForm());
  groups.insert(groups.begin(),
                {.id = "new", .heading = "New", .rows = {{.id = "new-row", .title = "A row"}}});
  redraw();
  EXPECT_TRUE(showsForm());
  EXPECT_TRUE(received({}));
}

TEST_P(SettingsWindowContract, AControlIsReplacedByOneOfAnotherKind) {
  open("behavior");
  rowIn(form, "icon-row").controls = {FormButton{.id = "icon", .title = "Show it"}};
  redraw();
  EXPECT_TRUE(showsForm());
  driver->press("icon");
  EXPECT_TRUE(received({form::ButtonPressed{"icon"}}));
}

TEST_P(SettingsWindowContract, TheFocusStaysWithItsControlWhenItsRowMoves) {
  open("areas");
  driver->focus("area2.name");
  auto& groups = sectionIn(form, "areas").groups;
  std::swap(groups[0], groups[1]);
  std::ranges::reverse(groups[0].rows);
  redraw();
  EXPECT_TRUE(showsForm());
  EXPECT_TRUE(hasFocus("area2.name"));
  groups.erase(groups.begin() + 1);
  redraw();
  EXPECT_TRUE(hasFocus("area2.name"));
}

TEST_P(SettingsWindowContract, AButtonMayRemoveItsOwnRow) {
  open("areas");
  reaction = [&](const FormEvent&) {
    auto& groups = sectionIn(form, "areas").groups;
    groups.erase(groups.begin());
    redraw();
  };
  driver->press("area1.delete");
  EXPECT_TRUE(received({form::ButtonPressed{"area1.delete"}}));
  EXPECT_TRUE(showsForm());
}

}  // namespace tilwin::contract
