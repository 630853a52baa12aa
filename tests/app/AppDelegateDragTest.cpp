#include "tests/app/Dragging.h"
#include "tests/app/RunningProgram.h"

namespace tilwin {
namespace {

/// The program as a user meets it who drags windows.
struct AppDelegateDrags : RunningProgram {
  AppDelegateDrags() : RunningProgram("1440x900+0+0,1000x800+1440+0") {}

  [[nodiscard]] std::optional<Rect> preview() const { return desktop.sheet.visible(); }

  MouseUser user{desktop};
};

constexpr Rect leftOfAll{0, 0, 720, 900};
constexpr Rect rightOfTheSecond{1940, 0, 500, 800};
constexpr Point atTheFarRight{2438, 400};

TEST_F(AppDelegateDrags, SnapByDefault) {
  start();
  user.dragAndLetGo(Dragging::inLeftZone);
  EXPECT_EQ(user.frame(), leftOfAll);
}

TEST_F(AppDelegateDrags, AreNotWatchedUntilItStarts) {
  delegate.emplace(platform);
  EXPECT_TRUE(desktop.mouse.monitors().empty());
  EXPECT_FALSE(desktop.screens.hasHandler());
}

TEST_F(AppDelegateDrags, FollowTheSettingsWithoutANewStart) {
  start();
  change({.dragToSnap = false});
  user.dragAndLetGo(Dragging::inLeftZone);
  EXPECT_EQ(desktop.windows.requestCount(), 0);
  desktop.windows.moveByHand(user.window(), MouseUser::untouched);
  change({.outer = 10});
  user.dragAndLetGo(Dragging::inLeftZone);
  EXPECT_EQ(user.frame(), (Rect{10, 10, 710, 880}));
}

TEST_F(AppDelegateDrags, LeaveIgnoredApplicationsAlone) {
  start();
  change({.ignoredApps = {"org.example.Other", desktop.windows.find(user.window())->bundleID}});
  user.dragAndLetGo(Dragging::inLeftZone);
  EXPECT_EQ(desktop.windows.requestCount(), 0);
  change({.ignoredApps = {"org.example.Other"}});
  desktop.windows.moveByHand(user.window(), MouseUser::untouched);
  user.dragAndLetGo(Dragging::inLeftZone);
  EXPECT_EQ(user.frame(), leftOfAll);
}

TEST_F(AppDelegateDrags, AreUndoneByTheShortcut) {
  start();
  user.dragAndLetGo(Dragging::inLeftZone);
  desktop.keyboard.press({51, 6144});
  desktop.time.runDue();
  EXPECT_EQ(user.frame(), MouseUser::untouched);
}

TEST_F(AppDelegateDrags, DoNotEndOnADisplayThatHasBeenUnplugged) {
  start();
  user.grab();
  user.dragTo(atTheFarRight);
  EXPECT_EQ(preview(), rightOfTheSecond);
  desktop.setDisplays("1440x900+0+0");
  EXPECT_EQ(preview(), std::nullopt);
  user.letGo();
  EXPECT_EQ(desktop.windows.requestCount(), 0);
}

TEST_F(AppDelegateDrags, AreNoLongerWatchedOnceItHasGone) {
  start();
  delegate.reset();
  EXPECT_TRUE(desktop.mouse.monitors().empty());
  desktop.setDisplays("1440x900+0+0");
  user.dragAndLetGo(Dragging::inLeftZone);
  EXPECT_EQ(desktop.windows.requestCount(), 0);
}

TEST_F(AppDelegateDrags, NeedNoQuestionWhereTheUserTrustsTheProgram) {
  start();
  EXPECT_EQ(desktop.user.askCount(), 0);
}

TEST_F(AppDelegateDrags, BeginWithAQuestionWhereTheUserDoesNot) {
  desktop.user.setTrusted(false);
  start();
  EXPECT_EQ(desktop.user.askCount(), 1);
  change({.gap = 4});
  user.dragAndLetGo(Dragging::inLeftZone);
  EXPECT_EQ(desktop.user.askCount(), 1);
  EXPECT_EQ(desktop.windows.requestCount(), 0);
  desktop.user.setTrusted(true);
  desktop.windows.moveByHand(user.window(), MouseUser::untouched);
  user.dragAndLetGo(atTheFarRight);
  EXPECT_EQ(desktop.windows.requestCount(), 1);
}

}  // namespace
}  // namespace tilwin
