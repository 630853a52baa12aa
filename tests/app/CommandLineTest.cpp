#include "app/CommandLine.h"

#include <gtest/gtest.h>

#include <array>
#include <sstream>
#include <string>
#include <vector>

#include "core/drag/ShadowLogFile.h"
#include "core/drag/ShadowReport.h"
#include "platform/simulated/SimulatedDesktop.h"
#include "tests/TemporaryFolder.h"
#include "tests/core/drag/Records.h"

namespace tilwin {
namespace {

namespace fs = std::filesystem;
using Status = LoginService::Status;

struct CommandLineMode : testing::Test {
  std::optional<int> run(const std::vector<const char*>& arguments) {
    return CommandLine::run(arguments, {desktop.bundle, desktop.login, desktop.words, desktop.log}, output);
  }
  std::optional<int> runOnDesktop(const std::vector<const char*>& arguments) {
    return CommandLine::runOnDesktop(arguments, {*desktop.provider(), desktop.user}, output);
  }
  /// What a mode without a display prints; it must end the program with status 0.
  std::string outputOf(const std::vector<const char*>& arguments) {
    output.str({});
    EXPECT_EQ(run(arguments), 0);
    return output.str();
  }

  TemporaryFolder home;
  fs::path support = home.path() / "support";
  SimulatedDesktop desktop{"1440x900+0+0", support};
  std::ostringstream output;
};

TEST_F(CommandLineMode, IsNoneWithoutAnArgumentThatNamesOne) {
  for (const auto& arguments : std::vector<std::vector<const char*>>{
           {}, {"--shadow", "shadow-report", "--shadow-report=1", "-status"}}) {
    EXPECT_EQ(run(arguments), std::nullopt);
    EXPECT_EQ(runOnDesktop(arguments), std::nullopt);
  }
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
  EXPECT_EQ(outputOf({"--shadow-report"}), ShadowReport::text({}, Date()) + "\n");
}

TEST_F(CommandLineMode, ReportsInTheWordsOfTheDesktop) {
  constexpr std::array words{Wording::Word{"this Mac", "this computer"}};
  desktop.words.spoken.words = words;
  EXPECT_TRUE(outputOf({"--shadow-report"})
                  .starts_with("Tilwin drag report (recorded on this computer, never sent anywhere)\n"));
}

TEST_F(CommandLineMode, IsFoundAmongOtherArguments) {
  EXPECT_NE(outputOf({"-platform", "offscreen", "--shadow-report", "-x"}), "");
}

TEST_F(CommandLineMode, PrintsNothingWhereThereIsNoPlaceForALog) {
  SimulatedBundle homeless{std::nullopt};
  EXPECT_EQ(CommandLine::run(std::vector{"--shadow-report"},
                             {homeless, desktop.login, desktop.words, desktop.log}, output),
            0);
  EXPECT_EQ(output.str(), "");
}

TEST_F(CommandLineMode, EnablesAndDisablesTheLoginItem) {
  EXPECT_EQ(outputOf({"--enable-login-item"}), "login item enabled\n");
  EXPECT_EQ(desktop.login.status(), Status::enabled);
  EXPECT_EQ(outputOf({"--disable-login-item"}), "login item removed\n");
  EXPECT_EQ(desktop.login.status(), Status::notRegistered);
}

TEST_F(CommandLineMode, EnablesTheLoginItemIfAskedForBoth) {
  EXPECT_EQ(outputOf({"--disable-login-item", "--enable-login-item"}), "login item enabled\n");
  EXPECT_EQ(desktop.login.status(), Status::enabled);
}

TEST_F(CommandLineMode, SaysWhyTheLoginItemIsNotEnabled) {
  desktop.login.refuse("denied", Status::requiresApproval);
  EXPECT_EQ(outputOf({"--enable-login-item"}),
            "login item not enabled: macOS needs your approval: open System Settings, General, Login Items, "
            "and allow it.\n");
  desktop.login.refuse("no such app", Status::notFound);
  EXPECT_EQ(outputOf({"--enable-login-item"}),
            "login item not enabled: macOS did not turn this on. Move the app to the Applications folder and "
            "try again.\n");
  EXPECT_EQ(desktop.log.lines(),
            (std::vector<std::string>{"Tilwin login item: denied", "Tilwin login item: no such app"}));
}

TEST_F(CommandLineMode, SaysThatTheLoginItemIsStillEnabled) {
  desktop.login.refuse("busy", Status::enabled);
  EXPECT_EQ(outputOf({"--disable-login-item"}), "login item still enabled\n");
}

TEST_F(CommandLineMode, PrintsTheStatusOfTheDesktop) {
  desktop.setDisplays("1440x900+0+0,2560x1440+1440-200");
  EXPECT_EQ(runOnDesktop({"--status"}), 0);
  EXPECT_EQ(output.str(),
            "accessibilityTrusted=true displays=2 signature=1440x900@0,0|2560x1440@1440,-200\n");
}

TEST_F(CommandLineMode, PrintsThatTheDesktopDoesNotTrustTheProgram) {
  desktop.user.setTrusted(false);
  EXPECT_EQ(runOnDesktop({"--status"}), 0);
  EXPECT_EQ(output.str(), "accessibilityTrusted=false displays=1 signature=1440x900@0,0\n");
  EXPECT_EQ(desktop.user.askCount(), 0);
}

TEST_F(CommandLineMode, PrintsTheStatusBeforeTheReportButAfterTheLoginItem) {
  EXPECT_EQ(run({"--shadow-report", "--status"}), std::nullopt);
  EXPECT_EQ(runOnDesktop({"--shadow-report", "--status"}), 0);
  EXPECT_EQ(output.str(), "accessibilityTrusted=true displays=1 signature=1440x900@0,0\n");
  EXPECT_EQ(outputOf({"--shadow-report", "--status", "--disable-login-item"}), "login item removed\n");
  EXPECT_EQ(runOnDesktop({"--disable-login-item", "--status"}), std::nullopt);
}

}  // namespace
}  // namespace tilwin
