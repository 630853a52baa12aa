#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "tests/desktop/DesktopTest.h"

namespace tilwin::desktop {

namespace {

constexpr const char* rightHalfKeys = "Control+Alt+Right";

/// Tilwin with settings that stood in its file before it started.
class Settings : public DesktopTest {
protected:
  void SetUp() override { endTilwin(); }
  void TearDown() override {
    DesktopTest::TearDown();
    endTilwin();
    std::filesystem::remove_all(settingsFolder());
  }

  static std::string fileText() {
    std::stringstream text;
    text << std::ifstream(settingsFolder() / "Tilwin.conf").rdbuf();
    return text.str();
  }

  /// Whether the keys do nothing to a window at its start frame, while Tilwin serves others.
  static testing::AssertionResult nothingCalled(const char* chord) {
    const TestWindow window = session().window();
    focusAtStart(window.id());
    press(chord);
    desktop().settle();
    if (desktop().frame(window.id()) != startFrame) {
      return testing::AssertionFailure() << chord << " moved the window to " << text(settled(window.id()));
    }
    press(rightHalfKeys);
    return stands(window.id(), rightHalf);
  }
};

}  // namespace

TEST_F(Settings, AnActionsOwnShortcutWorksInPlaceOfTheBuiltInOne) {
  restartTilwinWith(R"({"shortcuts":{"topLeft":{"keyCode":0,"modifiers":6144}}})");
  const TestWindow window = session().window();
  focusAtStart(window.id());
  press("Control+Alt+a");
  EXPECT_TRUE(stands(window.id(), {0, 0, 960, 540}));
  EXPECT_TRUE(nothingCalled("Control+Alt+u"));
}

TEST_F(Settings, ARemovedShortcutDoesNothing) {
  restartTilwinWith(R"({"disabled":["leftHalf"]})");
  EXPECT_TRUE(nothingCalled(leftHalfKeys));
}

TEST_F(Settings, TheShortcutOfAnAreaPutsTheFocusedWindowIntoItWithinTheMargin) {
  restartTilwinWith(
      R"({"outer":20,"gap":12,"customAreas":[{"id":"3F2504E0-4F89-41D3-9A0C-0305E82C3301","name":"Reading",)"
      R"("rect":{"x":0.25,"y":0.1,"width":0.5,"height":0.9},"shortcut":{"keyCode":15,"modifiers":6144}}]})");
  EXPECT_NE(tilwin().log().find("30 of 30 shortcuts work"), std::string::npos) << tilwin().log();
  const TestWindow window = session().window();
  focusAtStart(window.id());
  press("Control+Alt+r");
  EXPECT_TRUE(stands(window.id(), {490, 124, 940, 936}));
  press(restoreKeys);
  EXPECT_TRUE(stands(window.id(), startFrame));
}

TEST_F(Settings, HalvesKeepTheMarginAndTheGap) {
  restartTilwinWith(R"({"gap":8,"outer":10})");
  const TestWindow window = session().window();
  focusAtStart(window.id());
  press(leftHalfKeys);
  EXPECT_TRUE(stands(window.id(), {10, 10, 946, 1060}));
  press(rightHalfKeys);
  EXPECT_TRUE(stands(window.id(), {964, 10, 946, 1060}));
}

TEST_F(Settings, AGapOutOfRangeCountsAsTheLargest) {
  restartTilwinWith(R"({"gap":100})");
  const TestWindow window = session().window();
  focusAtStart(window.id());
  press(leftHalfKeys);
  EXPECT_TRUE(stands(window.id(), {0, 0, 928, 1080}));
}

TEST_F(Settings, WithoutCyclingAHalfStaysAHalf) {
  restartTilwinWith(R"({"cycleWidths":false})");
  const TestWindow window = session().window();
  focusAtStart(window.id());
  press(leftHalfKeys);
  ASSERT_TRUE(stands(window.id(), leftHalf));
  press(leftHalfKeys);
  desktop().settle();
  EXPECT_TRUE(stands(window.id(), leftHalf));
}

TEST_F(Settings, AnIgnoredApplicationIsNeverMoved) {
  restartTilwinWith(R"({"ignoredApps":["Slides"]})");
  const TestWindow slides = session().window({.className = "Slides"});
  focusAtStart(slides.id());
  press(leftHalfKeys);
  press("Control+Alt+Return");
  EXPECT_TRUE(serves());
  EXPECT_TRUE(stands(slides.id(), startFrame));
}

TEST_F(Settings, OneThatIsBrokenSpoilsNoOther) {
  restartTilwinWith(R"({"gap":"wide","outer":10,"disabled":7})");
  const TestWindow window = session().window();
  focusAtStart(window.id());
  press(leftHalfKeys);
  EXPECT_TRUE(stands(window.id(), {10, 10, 950, 1060}));
}

TEST_F(Settings, ThatCannotBeReadCountAsNoneAndAreLeftAsTheyAre) {
  restartTilwinWith(R"({"gap":64,"outer":)");
  const std::string before = fileText();
  EXPECT_TRUE(serves());
  endTilwin();
  EXPECT_EQ(fileText(), before);
  restartTilwin();
}

TEST_F(Settings, WithoutAFileAreTheDefaultsAndNoFileIsMade) {
  restartTilwin();
  EXPECT_TRUE(serves());
  EXPECT_FALSE(std::filesystem::exists(settingsFolder()));
}

}  // namespace tilwin::desktop
