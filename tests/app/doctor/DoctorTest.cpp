#include "app/doctor/Doctor.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>

#include "tests/app/commands/RunningCommands.h"

namespace tilwin {
namespace {

constexpr HotKeySpec leftKeys{123, HotKeySpec::control | HotKeySpec::option};

struct DoctorTest : RunningCommands {
  DoctorTest() {
    desktop.desktopReport.told.manager = ManagerFacts{.runs = true, .name = "Openbox"};
    desktop.desktopReport.told.windows = {
        {.kind = "normal", .application = "SecretApp", .title = "Secret plan"}};
    desktop.systemReport.told.home = folder.path();
    desktop.systemReport.told.settingsFile = folder.path() / "Tilwin.conf";
  }

  static testing::AssertionResult has(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos ? testing::AssertionSuccess()
                                                : testing::AssertionFailure()
                                                      << "not in it: " << part << "\nof:\n"
                                                      << text;
  }
};

TEST_F(DoctorTest, FindsNothingWrongWhereEverythingWorks) {
  start();
  const auto report = outputOf({"doctor"});
  EXPECT_TRUE(report.starts_with("Nothing is wrong that Tilwin can see.\n")) << report;
  EXPECT_TRUE(has(report, "29 of 29 work\n"));
}

TEST_F(DoctorTest, NamesWhoKeepsAKey) {
  desktop.keyboard.holdElsewhere(leftKeys);
  start();
  const auto report = outputOf({"doctor"});
  EXPECT_TRUE(report.starts_with("openbox keeps ⌃⌥← for its desktops")) << report;
  EXPECT_TRUE(has(report, "28 of 29 work\n"));
}

TEST_F(DoctorTest, TellsNoNameUnlessItIsAskedFor) {
  start();
  EXPECT_EQ(outputOf({"doctor"}).find("Secret"), std::string::npos);
  EXPECT_TRUE(has(outputOf({"doctor", "--names"}), "SecretApp: Secret plan\n"));
}

TEST_F(DoctorTest, RemembersTheLastPresses) {
  start();
  for (std::size_t count = 0; count < HotKeyCenter::mostPresses + 5; ++count) {
    desktop.keyboard.press(leftKeys);
    desktop.time.runDue();
  }
  const auto report = outputOf({"doctor"});
  std::size_t presses = 0;
  for (auto at = report.find("asked after"); at != std::string::npos; at = report.find("asked after", at + 1))
    ++presses;
  EXPECT_EQ(presses, HotKeyCenter::mostPresses) << report;
  EXPECT_TRUE(has(report, "  leftHalf  asked after 0.0 ms"));
}

TEST_F(DoctorTest, LooksAtTheFiles) {
  start();
  const auto file = folder.path() / "Tilwin.conf";
  std::ofstream(file) << "[General]\n";
  std::filesystem::permissions(file, std::filesystem::perms(0666));
  const auto report = outputOf({"doctor"});
  EXPECT_TRUE(has(report, "Others can change ~/Tilwin.conf (mode 0666)"));
  EXPECT_TRUE(has(report, "The settings that are stored cannot be read")) << "it holds none";
  EXPECT_TRUE(has(report, "  settings      ~/Tilwin.conf          10 bytes"));
}

TEST_F(DoctorTest, FindsSettingsThatCannotBeRead) {
  desktop.disk.store(SettingsStore::key, "{ no settings");
  start();
  EXPECT_TRUE(outputOf({"doctor"}).starts_with("The settings that are stored cannot be read"));
}

TEST_F(DoctorTest, FindsAnIconThatNoPanelShows) {
  desktop.icon.hasPanel = false;
  start();
  EXPECT_TRUE(outputOf({"doctor"}).starts_with("No panel shows Tilwin's icon"));
  EXPECT_EQ(call({"set", "showMenuBarIcon", "off"}), CommandReply::done());
  EXPECT_TRUE(outputOf({"doctor"}).starts_with("Nothing is wrong")) << "it is not to be shown";
}

}  // namespace
}  // namespace tilwin
