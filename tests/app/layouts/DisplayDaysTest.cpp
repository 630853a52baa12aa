#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>

#include "tests/app/RunningProgram.h"

namespace tilwin {
namespace {

using namespace std::chrono_literals;

constexpr auto laptopAlone = "1440x900+0+0";
constexpr auto docked = "1440x900+0+0,2560x1440+1440+0";
constexpr Rect onDesk{1500, 100, 1200, 900};
constexpr Rect onLaptop{50, 50, 900, 700};

/// Days of a user who docks and undocks a laptop. Time is moved by hand; captures come every 20 seconds.
struct DisplayDays : RunningProgram {
  DisplayDays() : RunningProgram(docked) {}

  /// The user plugs or unplugs, and the desktop moves the window as it likes.
  void connect(std::string_view displays, const Rect& desktopMovesItTo) {
    desktop.setDisplays(displays);
    desktop.windows.moveByHand(editor, desktopMovesItTo);
    desktop.time.runDue();
  }
  void passes(MainQueue::Seconds time) { desktop.time.advance(time); }
  Rect frame() { return desktop.windows.find(editor)->frame; }
  [[nodiscard]] std::size_t automaticLayouts() const { return savedLayouts().layouts.size(); }
  void change(bool restoring) { RunningProgram::change({.restoreOnDisplayChange = restoring}); }
  /// A layout file written by another hand, to see whether the program writes again.
  void scribble() { std::ofstream(layoutsFile()) << "scribbled"; }
  [[nodiscard]] bool isScribbled() const {
    std::ifstream file(layoutsFile());
    std::string text;
    return std::getline(file, text) && text == "scribbled";
  }

  SimulatedWindows::Handle editor = desktop.windows.open({.frame = onDesk});
};

TEST_F(DisplayDays, WindowsReturnToTheirPlacesWhenADisplayComesBack) {
  start();
  passes(20s);
  connect(laptopAlone, onLaptop);
  passes(1h);
  connect(docked, onLaptop);
  passes(2.4s);
  EXPECT_EQ(frame(), onLaptop);
  passes(0.2s);
  EXPECT_EQ(frame(), onDesk);
}

TEST_F(DisplayDays, EachSetOfDisplaysKeepsItsOwnArrangement) {
  start();
  passes(20s);
  connect(laptopAlone, onLaptop);
  passes(1min);
  connect(docked, {0, 0, 300, 300});
  passes(1min);
  EXPECT_EQ(frame(), onDesk);
  connect(laptopAlone, {0, 0, 300, 300});
  passes(3s);
  EXPECT_EQ(frame(), onLaptop);
  EXPECT_EQ(automaticLayouts(), 2);
}

TEST_F(DisplayDays, TheArrangementIsStillKnownAfterANewStart) {
  start();
  passes(20s);
  delegate.reset();
  connect(laptopAlone, onLaptop);
  start();
  connect(docked, onLaptop);
  passes(3s);
  EXPECT_EQ(frame(), onDesk);
}

TEST_F(DisplayDays, TheFirstCaptureAfterAChangeIsTheFirstOneMoreThan12SecondsLater) {
  start();
  passes(20s);
  connect(laptopAlone, onLaptop);
  passes(19s);
  EXPECT_EQ(automaticLayouts(), 1);
  passes(1s);
  EXPECT_EQ(automaticLayouts(), 2);
}

TEST_F(DisplayDays, ACaptureExactly12SecondsAfterAChangeIsStillHeldOff) {
  start();
  passes(28s);
  connect(laptopAlone, onLaptop);
  passes(12s);
  EXPECT_EQ(automaticLayouts(), 1);
  passes(20s);
  EXPECT_EQ(automaticLayouts(), 2);
}

TEST_F(DisplayDays, TwoNoticesOfOneChangeRestoreOnce) {
  start();
  passes(20s);
  connect(laptopAlone, onLaptop);
  connect(docked, onLaptop);
  passes(2s);
  desktop.screens.tell();
  passes(1s);
  EXPECT_EQ(frame(), onDesk);
  desktop.windows.moveByHand(editor, onLaptop);
  passes(2s);
  EXPECT_EQ(frame(), onLaptop);
}

TEST_F(DisplayDays, ANoticeWithoutAChangeRestoresNothingAndHoldsNothingOff) {
  start();
  passes(20s);
  desktop.windows.moveByHand(editor, onLaptop);
  passes(19s);
  desktop.screens.tell();
  passes(1s);
  EXPECT_EQ(frame(), onLaptop);
  ASSERT_EQ(automaticLayouts(), 1);
  EXPECT_EQ(savedLayouts().layouts[0].slots[0].target,
            SlotTarget(NormalizedRect::of(onLaptop, {0, 0, 1440, 900})));
}

TEST_F(DisplayDays, ADisplayThatGoesAgainBeforeTheRestoreLeavesTheWindowsAlone) {
  start();
  passes(20s);
  connect(laptopAlone, onLaptop);
  passes(1min);
  connect(docked, onLaptop);
  passes(1s);
  connect(laptopAlone, {10, 10, 400, 400});
  passes(1.6s);
  EXPECT_EQ(frame(), (Rect{10, 10, 400, 400}));
  passes(1s);
  EXPECT_EQ(frame(), onLaptop);
}

TEST_F(DisplayDays, AnUnchangedArrangementIsNotWrittenAgain) {
  start();
  passes(20s);
  ASSERT_EQ(automaticLayouts(), 1);
  scribble();
  passes(10min);
  EXPECT_TRUE(isScribbled());
  desktop.windows.moveByHand(editor, onLaptop);
  passes(20s);
  EXPECT_FALSE(isScribbled());
  EXPECT_TRUE(std::filesystem::exists(layoutsFile().string() + ".unreadable"));
}

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

}  // namespace
}  // namespace tilwin
