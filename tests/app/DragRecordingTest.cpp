#include <sys/stat.h>

#include <fstream>
#include <iterator>
#include <thread>

#include "app/AppDelegate.h"
#include "tests/TemporaryFolder.h"
#include "tests/app/Dragging.h"

namespace tilwin {
namespace {

using namespace std::chrono_literals;

/// The program, the user's folder and what is written there of the user's drags.
struct DragRecordingTest : testing::Test {
  DragRecordingTest() { desktop.windows.reserve(1, {.top = 25}); }

  void start(bool recording) {
    SettingsStore(desktop.userDefaults())
        .settings.set({.shadowRecording = recording, .restoreOnDisplayChange = false});
    delegate.emplace(platform);
    delegate->start();
  }
  void turn(bool recording) {
    delegate->store().settings.set({.shadowRecording = recording, .restoreOnDisplayChange = false});
    desktop.time.runDue();
  }
  void quit() {
    desktop.mainQueue().stop(0);
    desktop.time.runDue();
  }
  /// A drag that takes four samples to come to rest 10 points from the left edge, where nothing snaps.
  void dragToTheEdge() {
    user.grab();
    user.dragTo({400, 450});
    user.dragTo({200, 450});
    user.dragTo({10, 450});
    desktop.time.advance(200ms);
    user.letGo();
  }
  void snapToTheLeft() {
    user.grab();
    user.dragTo({300, 450});
    user.dragTo(Dragging::inLeftZone);
    user.letGo();
  }
  [[nodiscard]] std::string logText() const {
    std::ifstream file(log);
    return {std::istreambuf_iterator(file), {}};
  }
  /// Whether the log's own thread comes to write this many records, without being waited for on quitting.
  [[nodiscard]] bool comesToHold(std::size_t records) const {
    for (const auto patience = std::chrono::steady_clock::now() + 5s;
         std::chrono::steady_clock::now() < patience;) {
      if (ShadowLogFile::read(log).size() == records) return true;
      std::this_thread::sleep_for(5ms);
    }
    return false;
  }

  TemporaryFolder folder;
  std::filesystem::path share = folder.path() / "share";
  std::filesystem::path log = share / "Tilwin" / "shadow.jsonl";
  SimulatedDesktop desktop{"1440x900+0+0", share};
  Platform platform = desktop.platform();
  MouseUser user{desktop};
  std::optional<AppDelegate> delegate;
};

TEST_F(DragRecordingTest, ADragIsOneLineOfTheLogWithoutATraceOfTheWindow) {
  desktop.time.setWallClock(std::chrono::sys_days(std::chrono::March / 5 / 2024) + 14h + 7min + 31s);
  start(true);
  dragToTheEdge();
  quit();
  EXPECT_EQ(logText(), R"({"at":"2024-03-05T14:07:00Z","distance":10,"dwell":0.2,"follow":"leftAlone",)"
                       R"("neighbour":false,"rule":false,"screen":"1440x900","settled":1,"speed":0,"v":1,)"
                       R"("zone":"leftHalf"})"
                       "\n");
}

TEST_F(DragRecordingTest, IsOffByDefaultAndThenTouchesNoFile) {
  delegate.emplace(platform);
  delegate->start();
  dragToTheEdge();
  snapToTheLeft();
  quit();
  EXPECT_FALSE(std::filesystem::exists(share / "Tilwin"));
}

TEST_F(DragRecordingTest, FollowsTheSettingWithoutANewStart) {
  start(false);
  dragToTheEdge();
  turn(true);
  user.dragAndLetGo({700, 400});
  desktop.windows.moveByHand(user.window(), MouseUser::untouched);
  snapToTheLeft();
  quit();
  const auto records = ShadowLogFile::read(log);
  ASSERT_EQ(records.size(), 1);
  EXPECT_TRUE(records[0].rule);
}

TEST_F(DragRecordingTest, WritesADragOnceFourSecondsHavePassed) {
  start(true);
  dragToTheEdge();
  desktop.time.advance(4s);
  EXPECT_FALSE(std::filesystem::exists(log));
  desktop.time.advance(1s);
  EXPECT_TRUE(comesToHold(1));
}

TEST_F(DragRecordingTest, QuittingWritesWhatStillWaits) {
  start(true);
  snapToTheLeft();
  quit();
  const auto records = ShadowLogFile::read(log);
  ASSERT_EQ(records.size(), 1);
  EXPECT_EQ(records[0].follow, DragFollowUp::keptSnap);
}

TEST_F(DragRecordingTest, TurnedOffItForgetsWhatWaitsAndStopsItsTimer) {
  start(true);
  snapToTheLeft();
  turn(false);
  desktop.time.advance(1s);
  EXPECT_TRUE(desktop.time.isIdle());
  turn(true);
  quit();
  EXPECT_EQ(logText(), "");
}

TEST_F(DragRecordingTest, NothingOfADragMadeWhileItWasOffIsWrittenOnceItIsOnAgain) {
  start(true);
  turn(false);
  dragToTheEdge();
  turn(true);
  quit();
  EXPECT_EQ(logText(), "");
}

TEST_F(DragRecordingTest, ADragDuringWhichItWasTurnedOffIsNeverWritten) {
  start(true);
  user.grab();
  user.dragTo({400, 450});
  user.dragTo({10, 450});
  turn(false);
  user.letGo();
  turn(true);
  quit();
  EXPECT_EQ(logText(), "");
}

TEST_F(DragRecordingTest, QuittingRightAfterItWasTurnedOffWritesNothing) {
  start(true);
  snapToTheLeft();
  delegate->store().settings.set({.shadowRecording = false});
  desktop.mainQueue().stop(0);
  desktop.time.runDue();
  EXPECT_EQ(logText(), "");
}

TEST_F(DragRecordingTest, UndoingASnapByShortcutIsSeen) {
  start(true);
  snapToTheLeft();
  desktop.keyboard.press({51, 6144});
  desktop.time.runDue();
  EXPECT_EQ(user.frame(), MouseUser::untouched);
  EXPECT_TRUE(comesToHold(1));
  EXPECT_EQ(ShadowLogFile::read(log).front().follow, DragFollowUp::restoredOrMovedAway);
}

TEST_F(DragRecordingTest, OtherChangesOfTheSettingsDoNotPutOffItsTimer) {
  start(true);
  snapToTheLeft();
  for (int gap = 0; gap < 7; ++gap) {
    delegate->store().settings.set({.gap = static_cast<double>(gap), .shadowRecording = true});
    desktop.time.advance(900ms);
  }
  EXPECT_TRUE(comesToHold(1));
}

TEST_F(DragRecordingTest, OtherChangesOfTheSettingsLoseNothingThatWaits) {
  start(true);
  snapToTheLeft();
  delegate->store().settings.set({.gap = 4, .shadowRecording = true});
  desktop.time.runDue();
  quit();
  EXPECT_EQ(ShadowLogFile::read(log).size(), 1);
}

TEST_F(DragRecordingTest, WithoutAPlaceForTheLogDragsSnapAllTheSame) {
  std::ofstream(share) << "a file where the folder should be";
  start(true);
  snapToTheLeft();
  EXPECT_EQ(user.frame(), Dragging::leftHalf);
  EXPECT_TRUE(desktop.time.isIdle());
  quit();
  EXPECT_TRUE(std::filesystem::is_regular_file(share));
}

TEST_F(DragRecordingTest, NobodyElseCanComeToTheLogWhateverTheUmask) {
  const mode_t usual = ::umask(0);
  start(true);
  snapToTheLeft();
  quit();
  ::umask(usual);
  EXPECT_EQ(ShadowLogFile::read(log).size(), 1);
  EXPECT_EQ(std::filesystem::status(log.parent_path()).permissions(), std::filesystem::perms::owner_all);
  EXPECT_EQ(std::filesystem::status(log).permissions(), std::filesystem::perms(0600));
}

TEST_F(DragRecordingTest, ALinkThatSomebodyPutInTheLogsPlaceIsNotFollowed) {
  const auto letter = folder.path() / "letter";
  std::ofstream(letter) << std::string(6000, '\n');
  std::filesystem::permissions(letter, std::filesystem::perms(0644));
  std::filesystem::create_directories(log.parent_path());
  std::filesystem::create_symlink(letter, log);
  start(true);
  snapToTheLeft();
  quit();
  EXPECT_EQ(std::filesystem::file_size(letter), 6000);
  EXPECT_EQ(std::filesystem::status(letter).permissions(), std::filesystem::perms(0644));
}

TEST_F(DragRecordingTest, ALogThatCannotBeWrittenDisturbsNothing) {
  std::filesystem::create_directories(log);
  start(true);
  snapToTheLeft();
  quit();
  EXPECT_EQ(user.frame(), Dragging::leftHalf);
}

TEST_F(DragRecordingTest, NothingIsWrittenByAProgramThatHasGone) {
  start(true);
  snapToTheLeft();
  delegate.reset();
  desktop.time.advance(10s);
  quit();
  EXPECT_EQ(logText(), "");
}

}  // namespace
}  // namespace tilwin
