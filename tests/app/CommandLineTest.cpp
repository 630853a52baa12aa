#include "app/CommandLine.h"

#include <gtest/gtest.h>

#include <sstream>
#include <vector>

#include "core/drag/ShadowLogFile.h"
#include "core/drag/ShadowReport.h"
#include "platform/simulated/SimulatedSystem.h"
#include "tests/TemporaryFolder.h"
#include "tests/core/drag/Records.h"

namespace tilwin {
namespace {

namespace fs = std::filesystem;

struct CommandLineMode : testing::Test {
  std::optional<int> run(const std::vector<const char*>& arguments) {
    return CommandLine::run(arguments, bundle, output);
  }

  TemporaryFolder home;
  fs::path support = home.path() / "support";
  SimulatedBundle bundle{support};
  std::ostringstream output;
};

TEST_F(CommandLineMode, IsNoneWithoutAnArgumentThatNamesOne) {
  EXPECT_EQ(run({}), std::nullopt);
  EXPECT_EQ(run({"--shadow", "shadow-report", "--shadow-report=1"}), std::nullopt);
  EXPECT_EQ(output.str(), "");
  EXPECT_FALSE(fs::exists(support));
}

TEST_F(CommandLineMode, PrintsTheReportOfTheDragLog) {
  ShadowLogFile log(support / "Tilwin" / "shadow.jsonl");
  for (const ShadowRecord& record : {kept(), kept(), undone(), leftAlone()}) log.append(record);
  log.drain();
  EXPECT_EQ(run({"--shadow-report"}), 0);
  EXPECT_NE(output.str().find("\nDrags that ended near a screen edge: 4\n"
                              "  Snapped by today's rule: 3   (undone or moved away within seconds: 1, 33%;"),
            std::string::npos)
      << output.str();
}

TEST_F(CommandLineMode, PrintsALineFeedAfterTheReport) {
  EXPECT_EQ(run({"--shadow-report"}), 0);
  EXPECT_EQ(output.str(), ShadowReport::text({}, Date()) + "\n");
}

TEST_F(CommandLineMode, IsFoundAmongOtherArguments) {
  EXPECT_EQ(run({"-platform", "offscreen", "--shadow-report", "-x"}), 0);
  EXPECT_NE(output.str(), "");
}

TEST_F(CommandLineMode, PrintsNothingWhereThereIsNoPlaceForALog) {
  SimulatedBundle homeless{std::nullopt};
  EXPECT_EQ(CommandLine::run(std::vector{"--shadow-report"}, homeless, output), 0);
  EXPECT_EQ(output.str(), "");
}

}  // namespace
}  // namespace tilwin
