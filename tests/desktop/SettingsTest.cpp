#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "tests/desktop/DesktopTest.h"

namespace tilwin::desktop {

namespace {

/// Tilwin started anew with a settings file that a person has written.
class Settings : public DesktopTest {
protected:
  void TearDown() override {
    std::filesystem::remove_all(folder());
    restartTilwin();
    DesktopTest::TearDown();
  }

  static std::filesystem::path folder() { return session().home().config() / "Tilwin"; }
  static std::string fileText() {
    std::stringstream text;
    text << std::ifstream(folder() / "Tilwin.conf").rdbuf();
    return text.str();
  }
  /// The value as it stands in the file, quotes escaped.
  static void startWith(const std::string& value) {
    endTilwin();
    session().home().write("config/Tilwin/Tilwin.conf", "[General]\ntilwin.settings.v1=\"" + value + "\"\n");
    restartTilwin();
  }
};

}  // namespace

TEST_F(Settings, GapAndMarginKeepTheWindowsApart) {
  startWith(R"({\"gap\": 20, \"outer\": 10})");
  const TestWindow window = session().window();
  focusAtStart(window.id());
  press(leftHalfKeys);
  EXPECT_TRUE(stands(window.id(), {10, 10, 940, 1060}));
}

TEST_F(Settings, AShortcutOfTheUsersOwnTakesThePlaceOfTheDefault) {
  startWith(R"({\"shortcuts\": {\"leftHalf\": {\"keyCode\": 96, \"modifiers\": 4096}}})");
  const TestWindow window = session().window();
  focusAtStart(window.id());
  press(leftHalfKeys);
  EXPECT_TRUE(stands(window.id(), startFrame));
  press("Control+F5");
  EXPECT_TRUE(stands(window.id(), {0, 0, 960, 1080}));
}

TEST_F(Settings, AnAreaHasAShortcutAndCanBeLeftAgain) {
  startWith(R"({\"customAreas\": [{\"id\": \"01234567-89AB-CDEF-FEDC-BA9876543210\", \"name\": \"Notes\", )"
            R"(\"rect\": {\"x\": 0.25, \"y\": 0, \"width\": 0.5, \"height\": 1}, )"
            R"(\"shortcut\": {\"keyCode\": 96, \"modifiers\": 4096}}]})");
  EXPECT_NE(tilwin().log().find("30 of 30 shortcuts work"), std::string::npos) << tilwin().log();
  const TestWindow window = session().window();
  focusAtStart(window.id());
  press("Control+F5");
  EXPECT_TRUE(stands(window.id(), {480, 0, 960, 1080}));
  press(restoreKeys);
  EXPECT_TRUE(stands(window.id(), startFrame));
}

TEST_F(Settings, ABrokenFileIsLeftAloneAndTheDefaultsServe) {
  startWith(R"({\"gap\": 20, )");
  const std::string before = fileText();
  EXPECT_TRUE(serves());
  EXPECT_EQ(fileText(), before);
}

TEST_F(Settings, WithoutAFileNoneIsMade) {
  EXPECT_TRUE(serves());
  EXPECT_FALSE(std::filesystem::exists(folder()));
}

}  // namespace tilwin::desktop
