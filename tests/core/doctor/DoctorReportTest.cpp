#include "core/doctor/DoctorReport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "tests/core/doctor/Diagnoses.h"

namespace tilwin {
namespace {

using Names = DoctorReport::Names;
using Seconds = MoveTimes::Seconds;

testing::AssertionResult has(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos ? testing::AssertionSuccess()
                                              : testing::AssertionFailure()
                                                    << "not in it: " << part << "\nof:\n"
                                                    << text;
}

/// Columns are for people.
std::string withSingleSpaces(std::string text) {
  const auto bothSpaces = [](char first, char second) { return first == ' ' && second == ' '; };
  text.erase(std::unique(text.begin(), text.end(), bothSpaces), text.end());
  return text;
}

TEST(DoctorReport, BeginsWithWhatIsWrong) {
  auto diagnosis = soundDiagnosis();
  EXPECT_TRUE(
      DoctorReport::text(diagnosis, Names::none).starts_with("Nothing is wrong that Tilwin can see.\n\n"));
  diagnosis.shortcuts[0].state = ShortcutFacts::State::refused;
  const auto text = DoctorReport::text(diagnosis, Names::none);
  EXPECT_TRUE(text.starts_with("openbox keeps Ctrl+Alt+← for its desktops")) << text;
  EXPECT_TRUE(has(withSingleSpaces(text), "\nShortcuts\n 1 of 2 work\n Ctrl+Alt+← leftHalf refused\n"));
}

TEST(DoctorReport, HasNamesOnlyIfAskedFor) {
  auto diagnosis = soundDiagnosis();
  diagnosis.desktop.windows = {
      {.kind = "normal", .frame = {0, 0, 300, 200}, .application = "SecretApp", .title = "Secret plan"}};
  diagnosis.shortcuts = {
      {.keys = ctrlAltU, .area = "Secret area", .state = ShortcutFacts::State::usedEarlier}};
  EXPECT_EQ(DoctorReport::text(diagnosis, Names::none).find("Secret"), std::string::npos);
  const auto named = DoctorReport::text(diagnosis, Names::all);
  EXPECT_TRUE(has(named, "SecretApp: Secret plan\n"));
  EXPECT_TRUE(has(named, "area \"Secret area\""));
}

TEST(DoctorReport, DescribesWindowsByTheirKind) {
  auto diagnosis = soundDiagnosis();
  diagnosis.desktop.windows = {{.kind = "dialog",
                                .frame = {10, 20, 300, 200},
                                .decoration = {1, 2, 22, 3},
                                .least = {80, 40},
                                .states = {"maximised", "minimised"}},
                               {.kind = "normal",
                                .isOwn = true,
                                .frame = {-5, 0, 100, 100},
                                .shadow = Sides{26, 26, 23, 29},
                                .least = {1, 1},
                                .most = Size{500, 400},
                                .step = Size{6, 13},
                                .keepsProportions = true}};
  const auto text = withSingleSpaces(DoctorReport::text(diagnosis, Names::none));
  EXPECT_TRUE(has(text, "\n dialog 300x200+10+20 frame 1 2 22 3 least 80x40 maximised, minimised\n"));
  EXPECT_TRUE(has(text,
                  "\n normal (Tilwin's) 100x100-5+0 frame 0 0 0 0 draws its own, shadow 26 26 23 29 "
                  "least 1x1, most 500x400, steps 6x13, fixed proportions\n"));
}

TEST(DoctorReport, TellsHowLongPressesTook) {
  auto diagnosis = soundDiagnosis();
  EXPECT_TRUE(has(DoctorReport::text(diagnosis, Names::none), "\nLast presses\n  none yet\n"));
  diagnosis.presses = {{"leftHalf", Seconds{10}, Seconds{10.002}},
                       {"", Seconds{11}, Seconds{11.001}},
                       {"restore", Seconds{12}, Seconds{12.0005}}};
  diagnosis.desktop.moves = {{Seconds{10.001}, Seconds{10.0151}}, {Seconds{11.0005}, std::nullopt}};
  EXPECT_TRUE(has(DoctorReport::text(diagnosis, Names::none),
                  "  leftHalf  asked after 2.0 ms  answered after 15.1 ms\n"
                  "  an area   asked after 1.0 ms  not answered\n"
                  "  restore   asked after 0.5 ms  nothing was asked for\n"));
}

TEST(DoctorReport, WritesTheHomeFolderAsATilde) {
  auto diagnosis = soundDiagnosis();
  diagnosis.files.push_back({.what = "socket", .path = "/home/somebodyelse/socket"});
  const auto text = DoctorReport::text(diagnosis, Names::none);
  EXPECT_TRUE(has(text, "settings  ~/.config/Tilwin/Tilwin.conf  120 bytes  mode 0644\n"));
  EXPECT_TRUE(has(text, "socket    /home/somebodyelse/socket     not there\n"));
}

TEST(DoctorReport, TellsWhatAWindowManagerWasSeenToDo) {
  auto diagnosis = soundDiagnosis();
  auto& manager = *diagnosis.desktop.manager;
  manager.features = {{"_NET_WORKAREA", true}, {"_NET_WM_MOVERESIZE", false}};
  manager.message = "_NET_MOVERESIZE_WINDOW";
  manager.obeys = ManagerFacts::Obeys::no;
  manager.way = "ConfigureWindow";
  const auto text = DoctorReport::text(diagnosis, Names::none);
  for (const char* line :
       {"_NET_WORKAREA                 listed\n", "_NET_WM_MOVERESIZE            not listed\n",
        "Obeys _NET_MOVERESIZE_WINDOW  no\n", "Moved by                      ConfigureWindow\n"}) {
    EXPECT_TRUE(has(text, line));
  }
}

}  // namespace
}  // namespace tilwin
