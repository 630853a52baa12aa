#include <gtest/gtest.h>

#include <array>

#include "tests/desktop/DefaultShortcuts.h"
#include "tests/desktop/DragZones.h"
#include "tests/desktop/soak/Model.h"

namespace tilwin::desktop::soak {

namespace {

const Display wide{.output = "DUMMY0", .frame = wholeDisplay, .isPrimary = true};
const Display beside{.output = "DUMMY1", .frame = {1920, 0, 1000, 800}};
constexpr Rect elsewhere{100, 90, 700, 500};

/// A desktop with one window, without the desktop.
class TheModel : public testing::Test {
protected:
  TheModel() {
    model.displays = {wide};
    model.windows.resize(1);
    Model::seen(window(), {startFrame});
  }

  ModelWindow& window() { return model.windows.front(); }
  /// Whether the window then has to stand exactly there.
  testing::AssertionResult afterPress(std::string_view action, const Rect& frame) {
    model.pressed(window(), action);
    return stands(frame);
  }
  testing::AssertionResult stands(const Rect& frame) {
    if (window().next == Expected{{frame}, State::normal}) return testing::AssertionSuccess();
    return testing::AssertionFailure() << testing::PrintToString(window().next);
  }

  Model model;
};

}  // namespace

TEST_F(TheModel, AgreesWithTheFramesThatWereWrittenByHand) {
  for (const auto& [shown, action, chord, frame, isRelative] : oneDisplayShortcuts) {
    if (std::string_view(action) == "restore") continue;
    Model::seen(window(), {startFrame});
    EXPECT_TRUE(afterPress(action, frame)) << action;
  }
  for (const auto& [action, pointer, frame] : oneDisplayDrags) {
    Model::seen(window(), {startFrame});
    model.snapped(window(), action, wide);
    EXPECT_TRUE(stands(frame)) << action;
  }
}

TEST_F(TheModel, HasAllShortcuts) { EXPECT_EQ(rules::placing().size() + 1, oneDisplayShortcuts.size()); }

TEST_F(TheModel, CyclesTheWidthsOfASideWhicheverOfThemIsPressed) {
  EXPECT_TRUE(afterPress("leftHalf", {0, 0, 960, 1080}));
  EXPECT_TRUE(afterPress("leftHalf", {0, 0, 1280, 1080}));
  EXPECT_TRUE(afterPress("leftThird", {0, 0, 640, 1080}));
  EXPECT_TRUE(afterPress("leftTwoThirds", {0, 0, 960, 1080}));
  model.spacing.cycles = false;
  EXPECT_TRUE(afterPress("leftHalf", {0, 0, 960, 1080}));
}

TEST_F(TheModel, KeepsMarginAndGap) {
  model.spacing = {.outer = 8, .gap = 8};
  model.displays = {{.output = "DUMMY0", .frame = {0, 0, 1440, 900}, .isPrimary = true, .panel = 25}};
  EXPECT_TRUE(afterPress("leftHalf", {8, 33, 708, 859}));
  EXPECT_TRUE(afterPress("rightHalf", {724, 33, 708, 859}));
}

TEST_F(TheModel, RestoresOnceWhatWasThereBeforeTheFirstMove) {
  model.pressed(window(), "topLeft");
  model.pressed(window(), "larger");
  EXPECT_TRUE(afterPress("restore", startFrame));
  model.placed(window(), elsewhere);
  EXPECT_TRUE(afterPress("restore", elsewhere));
}

TEST_F(TheModel, RestoresAFrameOfADisplayThatIsGoneIntoReach) {
  model.displays = {wide, beside};
  Model::seen(window(), {{2300, 100, 500, 400}});
  EXPECT_TRUE(afterPress("leftHalf", {1920, 0, 500, 800}));
  model.displaysChanged({wide});
  Model::seen(window(), {elsewhere});
  EXPECT_TRUE(afterPress("restore", {1420, 100, 500, 400}));
}

TEST_F(TheModel, BringsAStateBackThatAMoveEnded) {
  model.seen(window(), {wholeDisplay, State::maximized});
  EXPECT_TRUE(afterPress("leftHalf", {0, 0, 960, 1080}));
  model.pressed(window(), "restore");
  EXPECT_TRUE(window().next.allows({wholeDisplay, State::maximized}));
  EXPECT_FALSE(window().next.allows({wholeDisplay, State::normal}));
}

TEST_F(TheModel, KeepsTheShareOfTheDisplayOnAnother) {
  model.displays = {wide, beside};
  Model::seen(window(), {{960, 0, 960, 1080}});
  EXPECT_TRUE(afterPress("nextDisplay", {2420, 0, 500, 800}));
  EXPECT_TRUE(afterPress("nextDisplay", {960, 0, 960, 1080}));
}

TEST_F(TheModel, ExpectsNothingWhereManagersDiffer) {
  Model::seen(window(), {{-100, 200, 800, 600}});
  model.pressed(window(), "maximizeHeight");
  EXPECT_TRUE(window().next.frames.empty());
}

TEST_F(TheModel, AllowsAFrameToBeRoundedTheOtherWayAndNoMore) {
  model.pressed(window(), "leftHalf");
  EXPECT_TRUE(window().next.allows({{0, 0, 960, 1080}}));
  EXPECT_TRUE(window().next.allows({{1, 0, 959, 1080}}));
  EXPECT_FALSE(window().next.allows({{2, 0, 958, 1080}}));
}

TEST_F(TheModel, LeavesWindowsAloneThatOneWhichFillsTheScreenMayCover) {
  EXPECT_TRUE(model.isWithinReach(window()));
  model.windows.resize(2);
  Model::seen(model.windows.back(), {wholeDisplay, State::fullScreen});
  EXPECT_FALSE(model.isWithinReach(window()));
  EXPECT_FALSE(model.isWithinReach(model.windows.back()));
}

TEST_F(TheModel, AllowsTwoOutcomesWhereARaceDecides) {
  model.perhapsPressed(window(), "leftHalf");
  EXPECT_TRUE(window().next.allows({startFrame}));
  EXPECT_TRUE(window().next.allows({{0, 0, 960, 1080}}));
  EXPECT_FALSE(window().next.allows({elsewhere}));
  Model::seen(window(), {{0, 0, 960, 1080}});
  model.pressed(window(), "restore");
  EXPECT_TRUE(window().next.allows({startFrame}));
  EXPECT_TRUE(window().next.allows({{0, 0, 960, 1080}}));
}

TEST_F(TheModel, ExpectsNothingOfAThrowThatTheProgramWasKeptFromSeeing) {
  Model::perhapsSnapped(window());
  EXPECT_TRUE(window().next.allows({wholeDisplay, State::maximized}));
  EXPECT_TRUE(window().next.allows({elsewhere}));
  EXPECT_EQ(window().memory, (Memory{.possible = {{startFrame}}, .mayBeEmpty = true}));
}

TEST_F(TheModel, NamesASetOfDisplaysAsTheFileOfLayoutsDoes) {
  model.displays = {{.output = "DUMMY0", .frame = {1920, 180, 1440, 900}, .isPrimary = true}, wide};
  EXPECT_EQ(model.signature(), "1920x1080@0,0|1440x900@1920,180");
}

}  // namespace tilwin::desktop::soak
