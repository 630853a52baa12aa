#include "tests/app/HotKeyCenterFixture.h"

namespace tilwin {
namespace {

TEST_F(HotKeyCenterTest, EveryDefaultShortcutReachesItsAction) {
  use({});
  for (const auto& row : TilwinSettings::defaults()) {
    targets.clear();
    press(row.spec);
    EXPECT_EQ(targets, Owners{row.action}) << SnapActions::rawValue(row.action);
  }
}

TEST_F(HotKeyCenterTest, APressIsReportedOnlyAfterTheEventHandlerHasReturned) {
  use({});
  EXPECT_TRUE(desktop.keyboard.press(leftHalfKeys));
  EXPECT_TRUE(targets.empty());
  desktop.time.runDue();
  EXPECT_EQ(targets, Owners{SnapAction::leftHalf});
}

TEST_F(HotKeyCenterTest, APressWhoseIdIsUnknownDoesNothing) {
  use({});
  for (const std::uint32_t id : {0U, 30U, 4294967295U}) desktop.keyboard.deliver(id);
  EXPECT_TRUE(desktop.time.isIdle());
  EXPECT_TRUE(targets.empty());
}

TEST_F(HotKeyCenterTest, TheReceiverIsTheOneSetWhenThePressIsReported) {
  use({});
  desktop.keyboard.press(leftHalfKeys);
  Owners later;
  center->onTarget = [&](const ShortcutOwner& owner) { later.push_back(owner); };
  desktop.time.runDue();
  EXPECT_TRUE(targets.empty());
  EXPECT_EQ(later, Owners{SnapAction::leftHalf});
}

TEST_F(HotKeyCenterTest, WithoutAReceiverAPressIsStillConsumed) {
  center->onTarget = nullptr;
  use({});
  EXPECT_TRUE(desktop.keyboard.press(leftHalfKeys));
  desktop.time.runDue();
  EXPECT_TRUE(targets.empty());
}

TEST_F(HotKeyCenterTest, APressBelongsToTheOwnerItHadWhenItCame) {
  use(only({SnapAction::leftHalf}));
  desktop.keyboard.press(leftHalfKeys);
  use(only({SnapAction::rightHalf}));
  desktop.time.runDue();
  EXPECT_EQ(targets, Owners{SnapAction::leftHalf});
}

TEST_F(HotKeyCenterTest, AReceiverMayRegisterAgain) {
  center->onTarget = [this](const ShortcutOwner& owner) {
    targets.push_back(owner);
    use(only({SnapAction::rightHalf}));
  };
  use({});
  press(leftHalfKeys);
  press(rightHalfKeys);
  EXPECT_EQ(targets, (Owners{SnapAction::leftHalf, SnapAction::rightHalf}));
}

TEST_F(HotKeyCenterTest, PressesFasterThanTheyAreServedDoNotPileUp) {
  use({});
  for (int count = 0; count < 1000; ++count) {
    EXPECT_TRUE(desktop.keyboard.press(count % 2 == 0 ? leftHalfKeys : rightHalfKeys));
  }
  desktop.time.runDue();
  EXPECT_EQ(targets.size(), HotKeyCenter::mostWaiting);
  targets.clear();
  press(topHalfKeys);
  EXPECT_EQ(targets, Owners{SnapAction::topHalf});
}

TEST_F(HotKeyCenterTest, APressThatStillWaitsWhenItGoesDoesNothing) {
  use({});
  desktop.keyboard.press(leftHalfKeys);
  center.reset();
  desktop.time.runDue();
  EXPECT_TRUE(targets.empty());
}

}  // namespace
}  // namespace tilwin
