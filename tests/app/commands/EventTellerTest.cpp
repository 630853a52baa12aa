#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/ports/CommandServer.h"
#include "tests/app/commands/RunningCommands.h"

namespace tilwin {
namespace {

/// Somebody who watches.
class Watcher : public CommandServer {
public:
  bool serve(Handler handler) override {
    handler_ = std::move(handler);
    return true;
  }
  void tell(std::string_view line) override { lines.emplace_back(line); }

  std::vector<std::string> lines;

private:
  Handler handler_;
};

struct EventTellerTest : RunningCommands {
  using RunningCommands::RunningCommands;

  void SetUp() override {
    delegate.emplace(platform);
    delegate->takeCommands({&watcher});
    delegate->start();
    desktop.time.runDue();
  }
  std::vector<std::string> seen() { return std::exchange(watcher.lines, {}); }

  Watcher watcher;
};

using Lines = std::vector<std::string>;

TEST_F(EventTellerTest, EachSnapIsALineWithTheActionThatWasAskedFor) {
  call({"snap", "left-half"});
  EXPECT_EQ(seen(), Lines{R"({"event":"snap","window":2,"action":"leftHalf"})"});
  call({"snap", "leftHalf"});
  EXPECT_EQ(seen(), Lines{R"({"event":"snap","window":2,"action":"leftHalf"})"}) << "the next width";
}

TEST_F(EventTellerTest, WhatCouldNotBeDoneIsNoEvent) {
  call({"snap", "restore"});
  call({"area", "none"});
  EXPECT_EQ(seen(), Lines());
}

TEST_F(EventTellerTest, AMoveIntoAnAreaNamesTheArea) {
  TilwinSettings settings;
  settings.customAreas = {CustomArea::starter("Reading \"column\"")};
  change(settings);
  seen();
  call({"area", "Reading \"column\""});
  EXPECT_EQ(seen(), Lines{R"({"event":"snap","window":2,"area":"Reading \"column\""})"});
}

TEST_F(EventTellerTest, LayoutsAreToldWhenTheyAreSavedAppliedAndDeleted) {
  call({"layout", "save", "Work"});
  call({"layout", "apply", "work"});
  call({"layout", "delete", "Work"});
  EXPECT_EQ(seen(), (Lines{R"({"event":"layout","change":"saved","name":"Work","isAutomatic":false})",
                           R"({"event":"layout","change":"applied","name":"Work","isAutomatic":false})",
                           R"({"event":"layout","change":"deleted","name":"Work","isAutomatic":false})"}));
}

TEST_F(EventTellerTest, EachSettingThatChangesIsALineWithItsNewValue) {
  TilwinSettings settings;
  settings.gap = 12;
  settings.cycleWidths = false;
  settings.customAreas = {CustomArea::starter("A")};
  change(settings);
  EXPECT_EQ(seen(),
            (Lines{R"({"event":"setting","key":"gap","value":12})",
                   R"({"event":"setting","key":"cycleWidths","value":false})",
                   R"({"event":"setting","key":"customAreas","value":[{"name":"A","rect":{"x":0.2,"y":0,)"
                   R"("width":0.6,"height":1}}]})"}));
  change(settings);
  EXPECT_EQ(seen(), Lines()) << "nothing has changed";
}

TEST_F(EventTellerTest, WhatWasStoredBeforeIsNoChange) {
  TilwinSettings settings;
  settings.gap = 5;
  change(settings);
  seen();
  call({"set", "gap", "5"});
  EXPECT_EQ(seen(), Lines());
}

TEST_F(EventTellerTest, ADisplayThatComesIsToldWithAllOfThem) {
  desktop.setDisplays("1440x900+0+0,1920x1080+1440+0");
  desktop.time.runDue();
  const auto lines = seen();
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_TRUE(lines.front().starts_with(R"({"event":"displays","displays":[{"index":0,)")) << lines.front();
  EXPECT_NE(lines.front().find(R"("width":1920)"), std::string::npos) << lines.front();
}

}  // namespace
}  // namespace tilwin
