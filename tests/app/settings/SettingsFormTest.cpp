#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "tests/app/settings/SettingsForm.h"

namespace tilwin {
namespace {

TEST_F(SettingsForm, HasFiveSectionsAndOpensWithTheFirst) {
  open();
  std::vector<std::string> titles;
  for (const auto& each : form().sections) titles.push_back(each.title);
  EXPECT_EQ(titles, (std::vector<std::string>{"Spacing", "Behavior", "Shortcuts", "Custom areas",
                                              "Drag statistics"}));
  EXPECT_EQ(form().chosenSection, "spacing");
  does(form::SectionChosen{"shortcuts"});
  EXPECT_EQ(form().chosenSection, "shortcuts");
}

TEST_F(SettingsForm, TheSpacingSlidersStopAt32AndSayWhatTheyMean) {
  open({.gap = 7.6, .outer = 12});
  EXPECT_EQ(caption("outer"), "12 points around the screen");
  EXPECT_EQ(caption("gap"), "8 points between tiles");
  EXPECT_EQ(row("outer")->title, "Screen margin");
  EXPECT_EQ(row("gap")->title, "Gap between windows");
  const auto* slider = control<FormSlider>("gap");
  EXPECT_EQ(slider->minimum, 0);
  EXPECT_EQ(slider->maximum, 32);
  EXPECT_EQ(slider->step, 1);
  does(form::SliderMoved{"outer", 20});
  EXPECT_EQ(settings().outer, 20);
  EXPECT_EQ(caption("outer"), "20 points around the screen");
}

TEST_F(SettingsForm, TheMarginComesBeforeTheGap) {
  open();
  EXPECT_EQ(rowTitles("spacing"), (std::vector<std::string>{"Screen margin", "Gap between windows"}));
}

TEST_F(SettingsForm, AStoredDistanceAboveTheSliderIsShownAsItIs) {
  open({.gap = 50});
  EXPECT_EQ(caption("gap"), "50 points between tiles");
  EXPECT_EQ(control<FormSlider>("gap")->value, 50);
}

TEST_F(SettingsForm, TheSpacingPreviewShowsMarginAndGap) {
  open();
  const auto flush = section("spacing").groups[0].picture->tiles;
  EXPECT_EQ(flush[0].rect, (NormalizedRect{0, 0, 0.5, 1}));
  does(form::SliderMoved{"gap", 32});
  const auto apart = section("spacing").groups[0].picture->tiles;
  EXPECT_LT(apart[0].rect.width, 0.5);
  EXPECT_EQ(apart[0].rect.x, 0);
}

TEST_F(SettingsForm, EveryToggleIsBoundToItsSetting) {
  open();
  const std::vector<std::pair<std::string, bool TilwinSettings::*>> toggles{
      {"dragToSnap", &TilwinSettings::dragToSnap},
      {"cycleWidths", &TilwinSettings::cycleWidths},
      {"restoreOnDisplayChange", &TilwinSettings::restoreOnDisplayChange},
      {"showMenuBarIcon", &TilwinSettings::showMenuBarIcon},
      {"shadowRecording", &TilwinSettings::shadowRecording}};
  for (const auto& [id, field] : toggles) {
    const bool before = settings().*field;
    EXPECT_EQ(control<FormToggle>(id)->isOn, before) << id;
    does(form::ToggleChanged{id, !before});
    EXPECT_EQ(settings().*field, !before) << id;
    EXPECT_EQ(control<FormToggle>(id)->isOn, !before) << id;
  }
}

TEST_F(SettingsForm, TheBehaviorTogglesAreInTheirOrderWithTheirTexts) {
  open();
  std::vector<std::string> titles;
  for (const auto& each : section("behavior").groups[0].rows) {
    titles.push_back(std::get<FormToggle>(each.controls[0]).title);
  }
  EXPECT_EQ(titles, (std::vector<std::string>{
                        "Drag a window to a screen edge or corner to snap it",
                        "Press the same half shortcut again to step through half, two thirds and one third",
                        "Put windows back when a display is reconnected", "Show the menu bar icon",
                        "Open Tilwin when I log in"}));
}

TEST_F(SettingsForm, AHiddenIconIsHiddenAtOnceAndSaysHowToComeBack) {
  open();
  EXPECT_TRUE(desktop.icon.isVisible());
  does(form::ToggleChanged{"showMenuBarIcon", false});
  EXPECT_FALSE(desktop.icon.isVisible());
  EXPECT_EQ(row("showMenuBarIcon")->note, "While it is hidden, start Tilwin again to open this window.");
}

TEST_F(SettingsForm, ThereIsARowForEveryActionInItsOrder) {
  open();
  std::vector<std::string> titles;
  for (const SnapAction action : SnapActions::all()) titles.emplace_back(SnapActions::title(action));
  EXPECT_EQ(rowTitles("shortcuts"), titles);
  for (const SnapAction action : SnapActions::all()) {
    const FormRow* const shown = row(shortcutOf(action));
    EXPECT_FALSE(shown->picture->tiles.empty()) << shown->title;
  }
}

TEST_F(SettingsForm, TheHelpLinesAreThere) {
  open();
  EXPECT_EQ(section("shortcuts").help,
            "Click a shortcut, then press the keys you want. Escape cancels, Delete turns it off.");
  EXPECT_EQ(
      section("customAreas").help,
      "Your own places on the screen, each with a name and, if you like, a shortcut. You can also save the "
      "front window as an area from the menu bar.");
}

TEST_F(SettingsForm, TheDesktopsOwnTilingIsToldOnlyWhenItIsOn) {
  open();
  EXPECT_EQ(row("nativeTiling"), nullptr);
}

TEST_F(SettingsForm, TheDesktopsOwnTilingCanBeTurnedOffInItsSettings) {
  desktop.disk.setFlag("com.apple.WindowManager", "EnableTilingByEdgeDrag", true);
  open();
  ASSERT_NE(row("nativeTiling"), nullptr);
  EXPECT_EQ(
      row("nativeTiling")->note,
      "macOS is also snapping windows when you drag them to an edge, so you may see both. Turn off “Drag "
      "windows to screen edges to tile” in Desktop & Dock.");
  presses("openDesktopAndDock");
  EXPECT_EQ(desktop.viewer.opened(),
            std::vector<std::string>{"x-apple.systempreferences:com.apple.Desktop-Settings.extension"});
}

TEST_F(SettingsForm, ButtonsHaveTheirTexts) {
  desktop.disk.setFlag("com.apple.WindowManager", "EnableTilingByEdgeDrag", true);
  open();
  EXPECT_EQ(control<FormButton>("nativeTiling")->title, "Open Desktop & Dock settings");
  EXPECT_EQ(control<FormButton>("addArea")->title, "Add an area");
}

TEST_F(SettingsForm, TheSettingsSpeakTheDesktopsWords) {
  static constexpr std::array words{Wording::Word{"this Mac", "this computer"},
                                    Wording::Word{"menu bar", "panel"}};
  desktop.words.spoken.words = words;
  open();
  EXPECT_EQ(control<FormToggle>("shadowRecording")->title, "Record drag statistics on this computer");
  EXPECT_EQ(control<FormToggle>("showMenuBarIcon")->title, "Show the panel icon");
}

TEST_F(SettingsForm, FollowsChangesThatAreMadeElsewhere) {
  open();
  change({.gap = 20});
  EXPECT_EQ(caption("gap"), "20 points between tiles");
}

TEST_F(SettingsForm, IsMadeWhenTheWindowOpensAndGoneWhenItCloses) {
  startWith({});
  EXPECT_FALSE(desktop.settingsWindow.isOpen());
  delegate->showSettings();
  delegate->showSettings();
  EXPECT_EQ(desktop.settingsWindow.showCount(), 2);
  does(form::SectionChosen{"behavior"});
  does(form::WindowClosed{});
  delegate->showSettings();
  EXPECT_EQ(form().chosenSection, "spacing");
}

TEST_F(SettingsForm, AnEventOfAClosedWindowDoesNothing) {
  open();
  does(form::WindowClosed{});
  does(form::SliderMoved{"gap", 20});
  EXPECT_EQ(settings().gap, 0);
}

}  // namespace
}  // namespace tilwin
