#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "tests/app/settings/OpenSettings.h"

namespace tilwin {
namespace {

constexpr HotKeySpec f5{96, 0};
constexpr HotKeySpec leftHalfKeys{123, HotKeySpec::control | HotKeySpec::option};

/// A user who edits one area, "Column": the left half of the display.
struct CustomAreas : OpenSettings {
  CustomAreas() {
    area.rect = {0, 0, 0.5, 1};
    TilwinSettings settings;
    settings.customAreas = {area};
    open(settings);
  }

  [[nodiscard]] std::string id(std::string_view kind) const { return FormIds::of(kind, area.id); }
  [[nodiscard]] CustomArea stored() { return settings().customAreas.at(0); }
  [[nodiscard]] const FormPicture& picture() const { return *section("customAreas").groups[0].picture; }
  void drags(Point from, Point to, double reach = 0.02) {
    const std::string picture = id(FormIds::areaPicture);
    does(form::PictureGrabbed{picture, from, {reach, reach}});
    does(form::PictureDragged{picture, to});
    does(form::PictureReleased{picture});
  }

  CustomArea area = CustomArea::starter("Column");
};

TEST_F(CustomAreas, EveryNumberHasASliderInPercent) {
  EXPECT_EQ(control<FormSlider>(id("areaX"))->caption, "0%");
  EXPECT_EQ(control<FormSlider>(id("areaWidth"))->caption, "50%");
  EXPECT_EQ(control<FormSlider>(id("areaHeight"))->caption, "100%");
  const auto* slider = control<FormSlider>(id("areaY"));
  EXPECT_EQ(slider->minimum, 0);
  EXPECT_EQ(slider->maximum, 1);
  EXPECT_EQ(slider->step, 0);
  std::vector<std::string> titles;
  for (const auto& each : section("customAreas").groups[0].rows) titles.push_back(each.title);
  EXPECT_EQ(titles, (std::vector<std::string>{"Name", "Left", "Top", "Width", "Height", "Shortcut"}));
}

TEST_F(CustomAreas, SlidersMoveTheAreaAndItsPicture) {
  does(form::SliderMoved{id("areaX"), 0.254});
  EXPECT_EQ(stored().rect, (NormalizedRect{0.254, 0, 0.5, 1}));
  EXPECT_EQ(control<FormSlider>(id("areaX"))->caption, "25%");
  EXPECT_EQ(picture().tiles[0].rect, (NormalizedRect{0.254, 0, 0.5, 1}));
}

TEST_F(CustomAreas, ValuesThatLeaveTheScreenAreCorrectedOnlyWhenTheyAreStored) {
  does(form::SliderMoved{id("areaX"), 0.9});
  EXPECT_EQ(control<FormSlider>(id("areaX"))->caption, "90%");
  EXPECT_EQ(SettingsStore(desktop.userDefaults()).settings.get().customAreas[0].rect,
            (NormalizedRect{0.5, 0, 0.5, 1}));
}

TEST_F(CustomAreas, TheNameIsChangedAsItIsTyped) {
  does(form::TextChanged{id("areaName"), "Reading"});
  EXPECT_EQ(stored().name, "Reading");
  EXPECT_EQ(control<FormTextField>(id("areaName"))->label, "Name of Reading");
  EXPECT_EQ(control<FormRecorder>(id("shortcut"))->label, "Shortcut for Reading");
  EXPECT_EQ(control<FormButton>(id("areaName"))->label, "Delete Reading");
  EXPECT_EQ(control<FormButton>(id("areaName"))->symbol, FormSymbol::trash);
}

TEST_F(CustomAreas, NamesHoweverLongDoNotKeepTheSettingsFromBeingSaved) {
  TilwinSettings twelve;
  for (int number = 0; number < 12; ++number) twelve.customAreas.push_back(CustomArea::starter("Area"));
  delegate->store().settings.set(twelve);
  for (const CustomArea& each : twelve.customAreas)
    does(form::TextChanged{FormIds::of(FormIds::areaName, each.id), std::string(100'000, 'n')});
  does(form::SliderMoved{"gap", 8});
  const auto next = SettingsStore(desktop.userDefaults()).settings.get();
  EXPECT_EQ(next.gap, 8);
  EXPECT_EQ(next.customAreas[11].name, std::string(CustomArea::longestName, 'n'));
  EXPECT_EQ(next, settings()) << "what is shown is what is kept";
}

TEST_F(CustomAreas, AShortcutIsRecordedAndTurnedOff) {
  EXPECT_EQ(recorderTitle(id("shortcut")), "No shortcut");
  records(id("shortcut"), f5);
  EXPECT_EQ(recorderTitle(id("shortcut")), "F5");
  EXPECT_TRUE(desktop.keyboard.press(f5));
  desktop.time.runDue();
  records(id("shortcut"), {51, 0});
  EXPECT_EQ(recorderTitle(id("shortcut")), "No shortcut");
  EXPECT_FALSE(desktop.keyboard.press(f5));
}

TEST_F(CustomAreas, AShortcutOfAnActionIsRefused) {
  records(id("shortcut"), leftHalfKeys);
  EXPECT_EQ(row(id("shortcut"))->problem, "Already set for “Left half”.");
  EXPECT_EQ(stored().shortcut, std::nullopt);
}

TEST_F(CustomAreas, AShortcutThatAnotherProgramHoldsIsMarked) {
  desktop.keyboard.holdElsewhere(f5);
  records(id("shortcut"), f5);
  EXPECT_EQ(row(id("shortcut"))->problem, "Another app already uses this shortcut, so it does not work.");
}

TEST_F(CustomAreas, AShortcutThatAnActionHasTooIsMarkedAsThatActions) {
  TilwinSettings twice = settings();
  twice.customAreas[0].shortcut = leftHalfKeys;
  change(twice);
  EXPECT_EQ(row(id("shortcut"))->problem, "Already set for “Left half”.");
}

TEST_F(CustomAreas, AnAreaIsAddedAndDeleted) {
  presses("addArea");
  ASSERT_EQ(settings().customAreas.size(), 2);
  EXPECT_EQ(settings().customAreas[1].rect, (NormalizedRect{0.2, 0, 0.6, 1}));
  EXPECT_EQ(settings().customAreas[1].name, "New area");
  presses(id("areaDelete"));
  ASSERT_EQ(settings().customAreas.size(), 1);
  EXPECT_EQ(settings().customAreas[0].name, "New area");
}

TEST_F(CustomAreas, AnAreaDeletedWhileItsShortcutIsRecordedStopsTheRecording) {
  presses(id("shortcut"));
  presses(id("areaDelete"));
  EXPECT_FALSE(form().isRecording());
}

TEST_F(CustomAreas, AnAreaDeletedWhileAnotherShortcutIsRecordedGivesItsKeysBack) {
  records(id("shortcut"), f5);
  presses(shortcutOf(SnapAction::leftHalf));
  presses(id("areaDelete"));
  does(form::KeyPressed{{53, 0}});
  EXPECT_FALSE(desktop.keyboard.press(f5));
}

TEST_F(CustomAreas, AreasAreInTheirOrderAndTheButtonComesLast) {
  TilwinSettings settings;
  for (const char* const name : {"Reading", "Column", "Music"})
    settings.customAreas.push_back(CustomArea::starter(name));
  change(settings);
  std::vector<std::string> names;
  for (const FormGroup& group : section("customAreas").groups) {
    const auto* field = std::get_if<FormTextField>(&group.rows[0].controls.front());
    names.push_back(field != nullptr ? field->text : group.rows[0].id);
  }
  EXPECT_EQ(names, (std::vector<std::string>{"Reading", "Column", "Music", "addArea"}));
}

TEST_F(CustomAreas, AfterTwelveAreasNoOtherCanBeAdded) {
  for (int count = 1; count < 12; ++count) presses("addArea");
  ASSERT_EQ(settings().customAreas.size(), 12);
  EXPECT_FALSE(control<FormButton>("addArea")->isEnabled);
  EXPECT_EQ(row("addArea")->note, "Tilwin keeps up to 12 custom areas.");
  presses("addArea");
  EXPECT_EQ(settings().customAreas.size(), 12);
}

TEST_F(CustomAreas, ThePictureMovesTheAreaAsAWhole) {
  drags({0.25, 0.5}, {0.45, 0.5});
  EXPECT_EQ(stored().rect, (NormalizedRect{0.2, 0, 0.5, 1}));
  drags({0.25, 0.5}, {5, 0.5});
  EXPECT_EQ(stored().rect, (NormalizedRect{0.5, 0, 0.5, 1}));
}

TEST_F(CustomAreas, ThePictureMovesTheEdgeThatIsGrabbed) {
  drags({0.49, 0.5}, {0.74, 0.9});
  EXPECT_EQ(stored().rect, (NormalizedRect{0, 0, 0.75, 1}));
  drags({0.3, 0.01}, {0.3, 0.26});
  EXPECT_EQ(stored().rect, (NormalizedRect{0, 0.25, 0.75, 0.75}));
}

TEST_F(CustomAreas, ThePictureMovesTwoEdgesAtACorner) {
  drags({0.5, 1}, {0.6, 0.8});
  EXPECT_NEAR(stored().rect.width, 0.6, 1e-9);
  EXPECT_NEAR(stored().rect.height, 0.8, 1e-9);
}

TEST_F(CustomAreas, OfTwoEdgesInReachTheNearerOneIsDragged) {
  change({.customAreas = {{.id = area.id, .name = "Narrow", .rect = {0.5, 0.5, 0.125, 0.125}}}});
  drags({0.53125, 0.5625}, {0.28125, 0.5625}, 0.125);
  EXPECT_EQ(stored().rect, (NormalizedRect{0.25, 0.5, 0.375, 0.125})) << "the left edge";
  drags({0.4375, 0.53125}, {0.4375, 0.28125}, 0.125);
  EXPECT_EQ(stored().rect, (NormalizedRect{0.25, 0.25, 0.375, 0.375})) << "the top edge";
}

TEST_F(CustomAreas, OfTwoEdgesEquallyNearTheRightAndTheBottomOneAreDragged) {
  change({.customAreas = {{.id = area.id, .name = "Narrow", .rect = {0.5, 0.5, 0.125, 0.125}}}});
  drags({0.5625, 0.5625}, {0.8125, 0.6875}, 0.125);
  EXPECT_EQ(stored().rect, (NormalizedRect{0.5, 0.5, 0.375, 0.25}));
}

TEST_F(CustomAreas, OfTwoAreasWithOneIdTheFirstIsDragged) {
  CustomArea other = area;
  other.rect = {0.5, 0.5, 0.5, 0.5};
  change({.customAreas = {area, other}});
  drags({0.25, 0.5}, {0.375, 0.5});
  EXPECT_EQ(stored().rect, (NormalizedRect{0.125, 0, 0.5, 1}));
  EXPECT_EQ(settings().customAreas[1].rect, other.rect);
}

TEST_F(CustomAreas, AnEdgeStopsAtTheSmallestSizeAndAtTheDisplay) {
  drags({0.5, 0.5}, {-3, 0.5});
  EXPECT_EQ(stored().rect, (NormalizedRect{0, 0, 0.05, 1}));
  drags({0.05, 0.5}, {3, 0.5});
  EXPECT_EQ(stored().rect, (NormalizedRect{0, 0, 1, 1}));
}

TEST_F(CustomAreas, AGrabBesideTheAreaMovesNothing) {
  drags({0.8, 0.5}, {0.2, 0.5});
  EXPECT_EQ(stored().rect, (NormalizedRect{0, 0, 0.5, 1}));
}

TEST_F(CustomAreas, ADragWithoutAGrabMovesNothing) {
  does(form::PictureDragged{id(FormIds::areaPicture), {0.9, 0.9}});
  EXPECT_EQ(stored().rect, (NormalizedRect{0, 0, 0.5, 1}));
}

}  // namespace
}  // namespace tilwin
