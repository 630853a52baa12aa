#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "tests/app/settings/OpenSettings.h"

namespace tilwin {
namespace {

constexpr auto record =
    R"({"at":"2024-03-05T14:07:00Z","distance":10,"dwell":0.2,"follow":"leftAlone","neighbour":false,"rule":false,)"
    R"("screen":"1440x900","settled":1,"speed":0,"v":1,"zone":"leftHalf"})"
    "\n";

struct DragStatistics : OpenSettings {
  void write(int drags) {
    std::filesystem::create_directories(log.parent_path());
    std::ofstream file(log);
    for (int count = 0; count < drags; ++count) file << record;
  }
  [[nodiscard]] std::string countLine() const { return row("shadowData")->title; }

  std::filesystem::path log = folder.path() / "Tilwin" / "shadow.jsonl";
};

TEST_F(DragStatistics, WithoutALogNoDragsAreCounted) {
  open();
  EXPECT_EQ(countLine(), "0 drags recorded so far.");
}

TEST_F(DragStatistics, OneDragIsCountedInTheSingular) {
  write(1);
  open();
  EXPECT_EQ(countLine(), "1 drag recorded so far.");
}

TEST_F(DragStatistics, TheCountIsReadAgainWhenASectionIsChosen) {
  open();
  write(3);
  does(form::SectionChosen{"dragStatistics"});
  EXPECT_EQ(countLine(), "3 drags recorded so far.");
}

TEST_F(DragStatistics, DeletingTheDataDeletesTheFileAndCountsAgain) {
  write(2);
  open();
  presses("deleteShadowData");
  EXPECT_FALSE(std::filesystem::exists(log));
  EXPECT_EQ(countLine(), "0 drags recorded so far.");
}

TEST_F(DragStatistics, DataIsDeletedWhileItIsRecordedToo) {
  write(2);
  open({.shadowRecording = true});
  presses("deleteShadowData");
  EXPECT_FALSE(std::filesystem::exists(log));
}

TEST_F(DragStatistics, TheDataIsShownInTheFileManager) {
  open();
  presses("showShadowData");
  EXPECT_EQ(desktop.viewer.revealed(), std::vector<std::filesystem::path>{log});
}

TEST_F(DragStatistics, TheSectionSaysWhatIsRecordedAndWhatIsNot) {
  open();
  EXPECT_EQ(control<FormToggle>("shadowRecording")->title, "Record drag statistics on this Mac");
  EXPECT_EQ(row("shadowRecording")->note,
            "Off by default. When on, Tilwin notes how each drag that ends near a screen edge moved "
            "(distance, speed, timing), whether it snapped, and whether you undid it within a few seconds. "
            "It never records app names, window titles or what is in a window. "
            "The file stays on this Mac and Tilwin does not send it anywhere. "
            "It changes nothing about how snapping works; it only lets you check, later, "
            "whether a smarter rule would suit the way you drag.");
}

TEST_F(DragStatistics, TheCountAndTheButtonsFollowTheSwitch) {
  open();
  ASSERT_EQ(section("dragStatistics").groups.size(), 1);
  std::vector<std::string> rows;
  for (const FormRow& each : section("dragStatistics").groups[0].rows) rows.push_back(each.id);
  EXPECT_EQ(rows, (std::vector<std::string>{"shadowRecording", "shadowData", "shadowActions"}));
  std::vector<std::string> titles;
  for (const FormControl& each : row("shadowActions")->controls)
    titles.push_back(std::get<FormButton>(each).title);
  EXPECT_EQ(titles, (std::vector<std::string>{"Show recorded data in Finder", "Delete recorded data"}));
}

TEST_F(DragStatistics, TheDragsAreCountedAgainWhenTheOpenWindowIsShownAgain) {
  open();
  write(2);
  delegate->showSettings();
  EXPECT_EQ(countLine(), "2 drags recorded so far.");
}

struct OpenAtLogin : OpenSettings {
  [[nodiscard]] bool isOn() const { return control<FormToggle>("openAtLogin")->isOn; }
  [[nodiscard]] std::string note() const { return row("openAtLogin")->note; }
  void turns(bool on) { does(form::ToggleChanged{"openAtLogin", on}); }
};

TEST_F(OpenAtLogin, IsTurnedOnAndOff) {
  open();
  EXPECT_FALSE(isOn());
  turns(true);
  EXPECT_TRUE(isOn());
  EXPECT_EQ(desktop.login.status(), LoginService::Status::enabled);
  turns(false);
  EXPECT_FALSE(isOn());
  EXPECT_EQ(desktop.login.status(), LoginService::Status::notRegistered);
  EXPECT_EQ(note(), "");
}

TEST_F(OpenAtLogin, ARefusedRequestFlipsBackAndSaysThatApprovalIsNeeded) {
  desktop.login.refuse("denied", LoginService::Status::requiresApproval);
  open();
  turns(true);
  EXPECT_FALSE(isOn());
  EXPECT_EQ(note(), "macOS needs your approval: open System Settings, General, Login Items, and allow it.");
}

TEST_F(OpenAtLogin, AnyOtherRefusalSaysWhatToTry) {
  desktop.login.refuse("not found");
  open();
  turns(true);
  EXPECT_FALSE(isOn());
  EXPECT_EQ(note(), "macOS did not turn this on. Move the app to the Applications folder and try again.");
}

TEST_F(OpenAtLogin, TheNoteGoesWithTheNextChange) {
  desktop.login.refuse("not found");
  open();
  turns(true);
  desktop.login.refuse(std::nullopt);
  turns(true);
  EXPECT_TRUE(isOn());
  EXPECT_EQ(note(), "");
}

TEST_F(OpenAtLogin, ATurningOffThatFailsStaysOn) {
  open();
  turns(true);
  desktop.login.refuse("denied", LoginService::Status::enabled);
  turns(false);
  EXPECT_TRUE(isOn());
  EXPECT_EQ(note(), "");
}

TEST_F(OpenAtLogin, ATurningOffThatFailsShowsWhatTheServiceSays) {
  open();
  turns(true);
  desktop.login.refuse("denied", LoginService::Status::requiresApproval);
  turns(false);
  EXPECT_FALSE(isOn());
  EXPECT_EQ(note(), "");
}

TEST_F(OpenAtLogin, TheServiceIsAskedAgainWhenTheOpenWindowIsShownAgain) {
  desktop.login.demandApproval();
  open();
  turns(true);
  ASSERT_NE(note(), "");
  delegate->showSettings();
  EXPECT_NE(note(), "") << "nobody has approved yet";
  desktop.login.refuse("approved since", LoginService::Status::enabled);
  delegate->showSettings();
  EXPECT_TRUE(isOn());
  EXPECT_EQ(note(), "");
}

TEST_F(OpenAtLogin, ItShowsWhatTheLoginServiceSays) {
  startWith({});
  desktop.platform().login.registerProgram();
  delegate->showSettings();
  EXPECT_TRUE(isOn());
}

}  // namespace
}  // namespace tilwin
