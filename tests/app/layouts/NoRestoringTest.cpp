#include "tests/app/layouts/DisplayDays.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>

namespace tilwin {
namespace {

using namespace std::chrono_literals;

/// The variable that names the temporary folder, set to another folder until the end of the scope.
class TemporaryFolderVariable {
public:
  explicit TemporaryFolderVariable(const std::filesystem::path& folder) {
    if (const char* present = std::getenv(name)) before_ = present;
    ::setenv(name, folder.c_str(), 1);
  }
  TemporaryFolderVariable(const TemporaryFolderVariable&) = delete;
  TemporaryFolderVariable& operator=(const TemporaryFolderVariable&) = delete;
  ~TemporaryFolderVariable() { before_ ? ::setenv(name, before_->c_str(), 1) : ::unsetenv(name); }

private:
  static constexpr auto name = "TMPDIR";
  std::optional<std::string> before_;
};

TEST_F(DisplayDays, WithoutWindowsNothingIsCaptured) {
  desktop.windows.close(editor);
  start();
  passes(1min);
  EXPECT_FALSE(std::filesystem::exists(layoutsFile()));
}

TEST_F(DisplayDays, WithoutAccessibilityNothingIsCapturedOrRestored) {
  start();
  passes(20s);
  connect(laptopAlone, onLaptop);
  desktop.user.setTrusted(false);
  passes(1min);
  EXPECT_EQ(automaticLayouts(), 1);
  connect(docked, onLaptop);
  passes(3s);
  EXPECT_EQ(frame(), onLaptop);
}

TEST_F(DisplayDays, WhenTheUserDoesNotWantItNothingIsCapturedRestoredOrWokenFor) {
  startWith({.restoreOnDisplayChange = false});
  desktop.time.runDue();
  EXPECT_TRUE(desktop.time.isIdle());
  passes(1min);
  EXPECT_FALSE(std::filesystem::exists(layoutsFile()));
}

TEST_F(DisplayDays, TheUserTurnsItOffAndOnAgain) {
  start();
  passes(20s);
  change(false);
  connect(laptopAlone, onLaptop);
  connect(docked, onLaptop);
  passes(1min);
  EXPECT_EQ(frame(), onLaptop);
  change(true);
  connect(laptopAlone, onLaptop);
  connect(docked, onLaptop);
  passes(3s);
  EXPECT_EQ(frame(), onDesk);
}

TEST_F(DisplayDays, TurnedOffBeforeTheRestoreItIsNotMade) {
  start();
  passes(20s);
  connect(laptopAlone, onLaptop);
  connect(docked, onLaptop);
  change(false);
  passes(3s);
  EXPECT_EQ(frame(), onLaptop);
}

TEST_F(DisplayDays, IgnoredApplicationsStayWhereTheyAre) {
  start();
  passes(20s);
  RunningProgram::change({.ignoredApps = {"org.example.Editor"}});
  connect(laptopAlone, onLaptop);
  connect(docked, onLaptop);
  passes(3s);
  EXPECT_EQ(frame(), onLaptop);
}

TEST_F(DisplayDays, AutomaticLayoutsAreNotInTheMenu) {
  start();
  passes(20s);
  EXPECT_FALSE(desktop.icon.choose({"Layouts", "Automatic"}));
}

TEST_F(DisplayDays, AFileThatCannotBeWrittenIsLoggedOnceAndTriedAgain) {
  std::ofstream(folder.path() / "Tilwin") << "a file where the folder should be";
  start();
  passes(20s);
  desktop.windows.moveByHand(editor, onLaptop);
  passes(20s);
  const auto failures = std::ranges::count_if(desktop.log.lines(), [](const std::string& line) {
    return line.starts_with("Tilwin: layouts could not be saved: ");
  });
  EXPECT_EQ(failures, 1);
  std::filesystem::remove(folder.path() / "Tilwin");
  desktop.windows.moveByHand(editor, onDesk);
  passes(20s);
  EXPECT_EQ(automaticLayouts(), 1);
}

TEST_F(DisplayDays, ARestoreThatStillWaitsWhenTheProgramGoesDoesNothing) {
  start();
  passes(20s);
  connect(laptopAlone, onLaptop);
  connect(docked, onLaptop);
  delegate.reset();
  passes(3s);
  EXPECT_EQ(frame(), onLaptop);
}

TEST(LayoutsFilePlace, IsInTheApplicationSupportFolderOrElseInTheTemporaryOne) {
  const TemporaryFolder folder;
  SimulatedBundle bundle{folder.path()};
  EXPECT_EQ(LayoutKeeper::layoutsURL(bundle), folder.path() / "Tilwin" / "layouts.json");
  SimulatedBundle homeless{std::nullopt};
  EXPECT_EQ(LayoutKeeper::layoutsURL(homeless),
            std::filesystem::temp_directory_path() / "Tilwin" / "layouts.json");
}

TEST(LayoutsFilePlace, IsStillNamedWhereTheTemporaryFolderIsMissing) {
  const TemporaryFolder folder;
  const TemporaryFolderVariable missing(folder.path() / "missing");
  SimulatedBundle homeless{std::nullopt};
  EXPECT_EQ(LayoutKeeper::layoutsURL(homeless), "/tmp/Tilwin/layouts.json");
}

}  // namespace
}  // namespace tilwin
