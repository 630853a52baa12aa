#include <gtest/gtest.h>

#include "tests/desktop/layouts/LayoutDesktop.h"

namespace tilwin::desktop {

namespace {

class ALayoutFromAFile : public LayoutDesktop {
protected:
  static std::vector<Rect> framesOf(const LayoutPlan& plan) {
    std::vector<Rect> frames;
    for (const auto& placement : plan.placements) frames.push_back(placement.frame);
    return frames;
  }
};

constexpr const char* writtenByHand = R"({
  "layouts": [
    {
      "name": "Work",
      "id": "0B9A7C0E-5B1F-4C57-9F57-1B3D5C7E9A10",
      "isAutomatic": false,
      "updatedAt": "2026-03-01T09:30:00+01:00",

      "slots": [
        { "bundleID": "xterm", "displayIndex": 0,
          "target": { "normalized": { "_0": { "x": 0, "y": 0, "width": 0.5, "height": 1 } } } },

        { "bundleID": "ORG.GTK.Demo2", "displayIndex": -4,
          "target": { "region": { "_0": { "columns": 2, "rows": 2, "col": 1, "row": 0, "colSpan": 1, "rowSpan": 1 } } } },

        { "bundleID": "Editor", "titleContains": "resume", "displayIndex": 1,
          "target": { "region": { "_0": { "columns": 3, "rows": 1, "col": 0, "row": 0, "colSpan": 1, "rowSpan": 1 } } } },

        { "bundleID": "org.example.NotHere", "displayIndex": 0,
          "target": { "normalized": { "_0": { "x": 0, "y": 0, "width": 1, "height": 1 } } } },

        { "appName": "BROWSER", "displayIndex": 9,
          "target": { "region": { "_0": { "columns": 3, "rows": 2, "col": 1, "row": 0, "colSpan": 2, "rowSpan": 1 } } } },

        { "bundleID": "Editor", "displayIndex": 1,
          "target": { "normalized": { "_0": { "x": 0.5, "y": 0.5, "width": 0.5, "height": 0.5 } } } }
      ]
    }
  ]
}
)";

constexpr const char* editorOnTheLeftHalf = R"(
        { "bundleID": "Editor", "displayIndex": 0,
          "target": { "normalized": { "_0": { "x": 0, "y": 0, "width": 0.5, "height": 1 } } } })";

/// The same place, once as cells of a grid and once as fractions.
constexpr const char* cellsAndFractions = R"(
        { "bundleID": "Cells", "displayIndex": 1,
          "target": { "region": { "_0": { "columns": 2, "rows": 1, "col": 1, "row": 0, "colSpan": 1, "rowSpan": 1 } } } },
        { "bundleID": "Fractions", "displayIndex": 1,
          "target": { "normalized": { "_0": { "x": 0.5, "y": 0, "width": 0.5, "height": 1 } } } })";

/// Numbers that make no sense, and some that no screen has room for.
constexpr const char* outOfAllBounds = R"(
        { "bundleID": "Editor", "displayIndex": -9223372036854775808,
          "target": { "region": { "_0": { "columns": 0, "rows": -3, "col": 5, "row": 9, "colSpan": -7, "rowSpan": 0 } } } },
        { "bundleID": "Cells", "displayIndex": 9223372036854775807,
          "target": { "region": { "_0": { "columns": 1, "rows": 1, "col": 9223372036854775807, "row": -9223372036854775808,
                                          "colSpan": 9223372036854775807, "rowSpan": 9223372036854775807 } } } },
        { "bundleID": "Fractions", "displayIndex": 0,
          "target": { "normalized": { "_0": { "x": -1e308, "y": 1e308, "width": -1e308, "height": 1e308 } } } })";

constexpr Rect leftHalf{0, 0, 960, 1080};
constexpr Rect firstPlace{300, 250, 640, 480};

}  // namespace

TEST_F(ALayoutFromAFile, PutsTheWindowsOfFiveApplicationsWhereItSays) {
  const auto terminal = session().open(Application::xterm);
  const auto demo = session().open(Application::gtkMenuBar);
  const auto resume = open("Editor", "Résumé.txt");
  const auto notes = open("Editor", "Notes.txt");
  const auto browser = open("Browser", "Tilwin");

  const auto layout = fromFile(writtenByHand);
  const auto plan = controller().apply(layout);

  const Rect onDemo{960, 0, 960, 540};
  const Rect onResume{1920, 180, 480, 900};
  const Rect onBrowser{2400, 180, 960, 450};
  const Rect onNotes{2640, 630, 720, 450};
  EXPECT_EQ(framesOf(plan), (std::vector{leftHalf, onDemo, onResume, onBrowser, onNotes}));
  EXPECT_EQ(plan.unmatched, (std::vector{layout.slots.at(3)}));
  EXPECT_TRUE(standsByItsSteps(terminal.window(), leftHalf));
  EXPECT_TRUE(stands(demo.window(), onDemo));
  EXPECT_TRUE(stands(resume, onResume));
  EXPECT_TRUE(stands(browser, onBrowser));
  EXPECT_TRUE(stands(notes, onNotes));
}

TEST_F(ALayoutFromAFile, AppliedTwiceMovesNothingTheSecondTime) {
  const auto editor = open("Editor", "Notes.txt");
  const auto layout = withSlots(editorOnTheLeftHalf);
  controller().apply(layout);
  ASSERT_TRUE(stands(editor, leftHalf));
  controller().apply(layout);
  EXPECT_TRUE(stands(editor, leftHalf));
}

TEST_F(ALayoutFromAFile, KeepsMarginAndGapAroundCellsAndNotAroundFractions) {
  controller().outer = 20;
  controller().gap = 10;
  const auto cells = open("Cells", "Cells");
  const auto fractions = open("Fractions", "Fractions");
  controller().apply(withSlots(cellsAndFractions));
  EXPECT_TRUE(stands(cells, {2645, 200, 695, 860}));
  EXPECT_TRUE(stands(fractions, {2640, 180, 720, 900}));
}

TEST_F(ALayoutFromAFile, TakesTheFrontmostWindowOfAnApplication) {
  const auto behind = open("Editor", "Behind", {100, 100, 500, 400});
  const auto inFront = open("Editor", "In front", {250, 200, 500, 400});
  ASSERT_TRUE(desktop().activate(behind));
  controller().apply(withSlots(editorOnTheLeftHalf));
  EXPECT_TRUE(stands(behind, leftHalf));
  EXPECT_TRUE(stands(inFront, {250, 200, 500, 400}));
}

TEST_F(ALayoutFromAFile, LeavesAMinimizedWindowAsItIs) {
  const auto editor = open("Editor", "Notes.txt");
  desktop().set(editor, WindowState::hidden, true);
  ASSERT_TRUE(eventually([&] { return desktop().has(editor, WindowState::hidden); }));

  const auto layout = withSlots(editorOnTheLeftHalf);
  const auto plan = controller().apply(layout);
  EXPECT_TRUE(plan.placements.empty());
  EXPECT_EQ(plan.unmatched, layout.slots);
  work(Milliseconds{300});
  EXPECT_TRUE(desktop().has(editor, WindowState::hidden));

  ASSERT_TRUE(desktop().activate(editor));
  EXPECT_TRUE(stands(editor, firstPlace));
  controller().apply(layout);
  EXPECT_TRUE(stands(editor, leftHalf));
}

TEST_F(ALayoutFromAFile, NeverMovesAnIgnoredApplication) {
  controller().ignoredBundleIDs = {"Editor"};
  const auto editor = open("Editor", "Notes.txt");
  const auto cells = open("Cells", "Cells");
  controller().apply(withSlots(std::string(editorOnTheLeftHalf) + "," + cellsAndFractions));
  EXPECT_TRUE(stands(cells, {2640, 180, 720, 900}));
  EXPECT_TRUE(stands(editor, firstPlace));
}

TEST_F(ALayoutFromAFile, ReleasesAMaximizedWindowIntoItsPlace) {
  const auto editor = open("Editor", "Notes.txt");
  desktop().setMaximized(editor, true);
  ASSERT_TRUE(eventually([&] { return desktop().maximized(editor); }));
  controller().apply(withSlots(editorOnTheLeftHalf));
  EXPECT_TRUE(stands(editor, leftHalf));
  EXPECT_FALSE(desktop().maximized(editor));
}

TEST_F(ALayoutFromAFile, WithADisplayGoneGoesToTheOneThatIsLeft) {
  const auto cells = open("Cells", "Cells");
  session().server().unplug("DUMMY1");
  ASSERT_TRUE(eventually([&] { return provider().displays().size() == 1; }));
  const auto place = provider().displays().at(0).visibleFrame;
  controller().apply(withSlots(cellsAndFractions));
  EXPECT_TRUE(stands(cells, {place.x + 720, place.y, 720, 900}));
}

TEST_F(ALayoutFromAFile, WithNonsenseForNumbersHarmsNothing) {
  const auto editor = open("Editor", "Notes.txt");
  const auto cells = open("Cells", "Cells");
  const auto fractions = open("Fractions", "Fractions");
  controller().apply(withSlots(outOfAllBounds));
  EXPECT_TRUE(stands(editor, firstPlace));
  EXPECT_TRUE(stands(cells, firstPlace));
  EXPECT_TRUE(stands(fractions, {0, 1026, 96, 54})) << "the nearest that fractions can say";
  controller().apply(withSlots(std::string(editorOnTheLeftHalf) + "," + cellsAndFractions));
  EXPECT_TRUE(stands(editor, leftHalf));
  EXPECT_TRUE(stands(cells, {2640, 180, 720, 900}));
  EXPECT_TRUE(session().manager().process().running());
}

TEST_F(ALayoutFromAFile, RestoreBringsBackWhereEachWindowStoodBefore) {
  const auto editor = open("Editor", "Notes.txt");
  controller().apply(withSlots(editorOnTheLeftHalf));
  ASSERT_TRUE(stands(editor, leftHalf));
  controller().perform(SnapAction::restore);
  EXPECT_TRUE(stands(editor, firstPlace));
}

}  // namespace tilwin::desktop
