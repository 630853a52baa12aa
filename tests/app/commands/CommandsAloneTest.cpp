#include "app/commands/CommandsAlone.h"

#include <string>
#include <vector>

#include "tests/app/commands/RunningCommands.h"

namespace tilwin {
namespace {

/// Nothing runs; the called program does what it can itself.
struct CommandsAloneTest : RunningCommands {
  CommandReply callAlone(const std::vector<std::string>& arguments) {
    return CommandsAlone::run({platform.mainQueue, platform.log, platform.userDefaults, platform.windows,
                               platform.trust, platform.bundle, platform.workspace, platform.words,
                               platform.desktopReport, platform.systemReport},
                              arguments)
        .reply;
  }
};

TEST_F(CommandsAloneTest, SnapFollowsTheStoredSettings) {
  TilwinSettings settings;
  settings.outer = 10;
  SettingsStore(desktop.userDefaults()).settings.set(settings);
  EXPECT_EQ(callAlone({"snap", "leftHalf"}), CommandReply::done());
  EXPECT_EQ(frameOf(terminal), (Rect{10, 10, 710, 880}));
}

TEST_F(CommandsAloneTest, AreasAndLayoutsAreThoseThatAreStored) {
  TilwinSettings settings;
  settings.customAreas = {CustomArea::starter("Middle")};
  startWith(settings);
  ASSERT_EQ(call({"layout", "save", "Desk"}), CommandReply::done());
  delegate.reset();
  EXPECT_EQ(callAlone({"area", "Middle"}), CommandReply::done());
  EXPECT_EQ(frameOf(terminal), (Rect{288, 0, 864, 900}));
  EXPECT_EQ(callAlone({"layout", "apply", "Desk"}), CommandReply::done());
  EXPECT_EQ(frameOf(terminal), (Rect{100, 100, 800, 600}));
  EXPECT_EQ(callAlone({"place", "terminal right"}), CommandReply::done());
  EXPECT_EQ(frameOf(terminal), (Rect{720, 0, 720, 900}));
}

TEST_F(CommandsAloneTest, NothingIsStoredOrRegistered) {
  EXPECT_EQ(callAlone({"snap", "leftHalf"}), CommandReply::done());
  EXPECT_EQ(desktop.disk.writeCount(), 0);
  EXPECT_TRUE(desktop.keyboard.registrations().empty());
  EXPECT_FALSE(std::filesystem::exists(layoutsFile()));
  EXPECT_TRUE(desktop.time.isIdle());
}

TEST_F(CommandsAloneTest, DoctorSaysFirstThatNothingRuns) {
  const auto reply = callAlone({"doctor"});
  EXPECT_EQ(reply.status, exit_status::done);
  EXPECT_TRUE(reply.output.starts_with("Tilwin is not running, so no shortcut works")) << reply.output;
  EXPECT_NE(reply.output.find("\n  29 are set\n"), std::string::npos) << reply.output;
  EXPECT_NE(reply.output.find("\n  not known: Tilwin is not running\n"), std::string::npos) << reply.output;
}

TEST_F(CommandsAloneTest, WhatNeedsAnInstanceIsRefused) {
  for (const std::vector<std::string>& words :
       {std::vector<std::string>{"quit"}, {"settings"}, {"set", "gap", "3"}, {"layout", "save", "Desk"}}) {
    EXPECT_EQ(callAlone(words), CommandReply::failed(exit_status::needsInstance,
                                                     "Tilwin is not running. Start it with \"tilwin\"."))
        << words.front();
  }
}

}  // namespace
}  // namespace tilwin
