#include <algorithm>
#include <fstream>
#include <sstream>

#include "tests/desktop/drags/DragTest.h"

namespace tilwin::desktop {

namespace {

/// The time that a drag is given to be followed by a press, and some.
constexpr Milliseconds recordTimeout{12000};

std::string textOf(const std::filesystem::path& file) {
  std::stringstream text;
  text << std::ifstream(file).rdbuf();
  return text.str();
}

}  // namespace

TEST_F(Drags, ADragThatEndsCloseToAnEdgeIsRecordedWhenThatIsSwitchedOn) {
  const auto file = session().home().data() / "Tilwin" / "shadow.jsonl";
  EXPECT_FALSE(std::filesystem::exists(file)) << "recorded though nobody asked for it";
  restartTilwinWith(R"({"shadowRecording":true})");
  const TestWindow window = session().window();
  dragTo({10, 540}, window.id());
  EXPECT_TRUE(previewsNothing());
  letGo();
  EXPECT_TRUE(keepsItsSize(window.id()));
  const auto recorded = [&] { return textOf(file).ends_with("\n"); };
  ASSERT_TRUE(desktop().waitUntil(recorded, recordTimeout)) << tilwin().log();
  const std::string lines = textOf(file);
  EXPECT_EQ(std::count(lines.begin(), lines.end(), '\n'), 1) << lines;
  EXPECT_NE(lines.find("leftHalf"), std::string::npos) << lines;
}

}  // namespace tilwin::desktop
