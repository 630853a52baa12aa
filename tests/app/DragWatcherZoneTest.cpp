#include "tests/app/Dragging.h"

namespace tilwin {
namespace {

/// Where zones are, and what is shown of them.
using DragWatcherZone = Dragging;
using DragWatcherDisplays = DraggingOnTwoDisplays;

constexpr Point farTopLeft{720, 2};
constexpr Point farTopRight{1940, 2};

struct Expected {
  Point point;
  std::optional<Rect> preview;
};

TEST_F(DragWatcherZone, AreSixPointsDeepAndSixtyAtTheCorners) {
  user.grab();
  user.dragTo(inNoZone);
  for (const auto& [point, expected] : std::initializer_list<Expected>{
           {{6, 450}, leftHalf},
           {{6.5, 450}, std::nullopt},
           {{1434, 450}, rightHalf},
           {{1433.5, 450}, std::nullopt},
           {{720, 6}, whole},
           {{720, 6.5}, std::nullopt},
           {{720, 894}, Rect{0, 463, 1440, 438}},
           {{720, 893.5}, std::nullopt},
           {{60, 0}, Rect{0, 25, 720, 438}},
           {{60.5, 0}, whole},
           {{0, 60.5}, leftHalf},
           {{1439, 899}, Rect{720, 463, 720, 438}},
       }) {
    user.dragTo(point);
    EXPECT_EQ(preview(), expected) << point.x << "," << point.y;
  }
}

TEST_F(DragWatcherZone, ThePreviewIsWhereTheWindowGoesWithMargins) {
  controller.outer = 8;
  controller.gap = 8;
  user.grab();
  user.dragTo(inLeftZone);
  EXPECT_EQ(preview(), (Rect{8, 33, 708, 859}));
  user.letGo();
  EXPECT_EQ(user.frame(), (Rect{8, 33, 708, 859}));
}

TEST_F(DragWatcherZone, ThePreviewGoesWhenThePointerLeavesTheZone) {
  user.grab();
  user.dragTo(inLeftZone);
  user.dragTo(inNoZone);
  EXPECT_EQ(preview(), std::nullopt);
  user.letGo();
  EXPECT_EQ(desktop.windows.requestCount(), 0);
}

TEST_F(DragWatcherZone, ThePreviewGoesWhenTheWindowIsLetGo) {
  user.dragAndLetGo(inLeftZone);
  EXPECT_EQ(preview(), std::nullopt);
}

TEST_F(DragWatcherZone, ThePreviewIsPutSomewhereOnlyWhenTheZoneChanges) {
  user.grab();
  user.dragTo(inLeftZone);
  user.dragTo({3, 460});
  user.dragTo({1, 300});
  EXPECT_EQ(desktop.sheet.showCount(), 1);
  user.dragTo({1, 10});
  EXPECT_EQ(desktop.sheet.showCount(), 2);
  user.dragTo(inNoZone);
  user.dragTo({1, 10});
  EXPECT_EQ(desktop.sheet.showCount(), 3);
}

TEST_F(DragWatcherZone, APanelsRoomIsKeptFree) {
  desktop.windows.reserve(1, {.left = 64, .top = 25, .bottom = 75});
  user.grab();
  user.dragTo(inTopZone);
  EXPECT_EQ(preview(), (Rect{64, 25, 1376, 800}));
}

TEST_F(DragWatcherDisplays, EachHasZonesOfItsOwn) {
  user.grab();
  user.dragTo({1439, 450});
  EXPECT_EQ(preview(), rightHalf);
  user.dragTo({1440, 450});
  EXPECT_EQ(preview(), (Rect{1440, 0, 500, 800}));
  user.letGo();
  EXPECT_EQ(user.frame(), (Rect{1440, 0, 500, 800}));
}

TEST_F(DragWatcherDisplays, FromOneStraightToTheSameZoneOfTheOther) {
  user.grab();
  user.dragTo(farTopLeft);
  EXPECT_EQ(preview(), whole);
  user.dragTo(farTopRight);
  EXPECT_EQ(preview(), (Rect{1440, 0, 1000, 800}));
  user.letGo();
  EXPECT_EQ(user.frame(), (Rect{1440, 0, 1000, 800}));
}

TEST_F(DragWatcherDisplays, APointerBetweenThemIsInNoZone) {
  user.grab();
  user.dragTo({1441, 400});
  EXPECT_TRUE(preview().has_value());
  user.dragTo({1441, 805});
  EXPECT_EQ(preview(), std::nullopt);
  user.letGo();
  EXPECT_EQ(desktop.windows.requestCount(), 0);
}

TEST_F(DragWatcherDisplays, NoWindowIsSentToOneThatHasGone) {
  user.grab();
  user.dragTo(farTopRight);
  desktop.setDisplays("1440x900+0+0");
  watcher->displaysChanged();
  EXPECT_EQ(preview(), std::nullopt);
  user.letGo();
  EXPECT_EQ(desktop.windows.requestCount(), 0);
}

TEST_F(DragWatcherDisplays, AfterAChangeTheNextMoveDecidesAgain) {
  user.grab();
  user.dragTo(farTopRight);
  desktop.windows.reserve(2, {.top = 30});
  watcher->displaysChanged();
  EXPECT_EQ(preview(), std::nullopt);
  user.dragTo(farTopRight);
  EXPECT_EQ(preview(), (Rect{1440, 30, 1000, 770}));
}

TEST_F(DragWatcherDisplays, AMoveThatIsQuickerThanTheNewsSeesTheChangeToo) {
  user.grab();
  user.dragTo(farTopRight);
  desktop.windows.reserve(2, {.top = 30});
  user.dragTo(farTopRight);
  EXPECT_EQ(preview(), (Rect{1440, 30, 1000, 770}));
}

TEST_F(DragWatcherDisplays, AChangeOfTheOtherOneDisturbsNothing) {
  user.grab();
  user.dragTo({1441, 400});
  desktop.windows.reserve(1, {.top = 40});
  watcher->displaysChanged();
  EXPECT_EQ(preview(), (Rect{1440, 0, 500, 800}));
  EXPECT_EQ(desktop.sheet.showCount(), 1);
  user.letGo();
  EXPECT_EQ(user.frame(), (Rect{1440, 0, 500, 800}));
}

TEST_F(DragWatcherDisplays, AChangeWithoutADragIsNoHarm) {
  desktop.setDisplays("1440x900+0+0");
  watcher->displaysChanged();
  user.dragAndLetGo(inTopZone);
  EXPECT_EQ(user.frame(), (Rect{0, 0, 1440, 900}));
}

}  // namespace
}  // namespace tilwin
