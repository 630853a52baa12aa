#include <gtest/gtest.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <csignal>

#include "tests/contract/qt/StatusIcon.h"

namespace tilwin::contract {
namespace {

using Chosen = std::vector<std::string>;

/// Whether this process has a window in a panel's tray.
bool isInXEmbedTray() {
  return std::ranges::any_of(QApplication::topLevelWidgets(), [](const QWidget* widget) {
    return widget->isVisible() && widget->inherits("QSystemTrayIconSys");
  });
}

TEST(StatusItemUnderTint2, ComesWhenThePanelStartsLater) {
  const StatusIcon icon;
  runMainLoop(desktop::Milliseconds{300});
  EXPECT_FALSE(findIcon());
  const auto panel = startPlain(Panel::tint2);
  EXPECT_TRUE(StatusIcon::comes());
  EXPECT_TRUE(isInXEmbedTray());
}

TEST(StatusItemUnderTint2, ComesAgainWhenThePanelIsRestarted) {
  const StatusIcon icon;
  auto panel = startPlain(Panel::tint2);
  ASSERT_TRUE(StatusIcon::comes());
  panel.end();
  EXPECT_TRUE(StatusIcon::goes());
  panel = startPlain(Panel::tint2);
  ASSERT_TRUE(StatusIcon::comes());
  StatusIcon::click();
  ASSERT_TRUE(
      runMainLoopUntil([] { return QApplication::activePopupWidget() != nullptr; }, desktop::answerTimeout));
  qtDesktop().input().press("Down");
  qtDesktop().input().press("Return");
  EXPECT_TRUE(icon.isChosen(1));
  EXPECT_EQ(icon.chosen, Chosen{"first"});
}

TEST(StatusItemUnderTint2, StaysHiddenWhenThePanelComesWhileItIsHidden) {
  StatusIcon icon;
  icon.item.setVisible(false);
  const auto panel = startPlain(Panel::tint2);
  runMainLoop(desktop::Milliseconds{500});
  EXPECT_FALSE(findIcon());
  icon.item.setVisible(true);
  EXPECT_TRUE(StatusIcon::comes());
}

TEST(StatusItem, GoesWithTheObject) {
  const auto panel = startPlain(Panel::tint2);
  {
    const StatusIcon icon;
    ASSERT_TRUE(StatusIcon::comes());
  }
  EXPECT_TRUE(runMainLoopUntil([] { return !findIcon(); }, desktop::answerTimeout));
}

TEST(StatusItem, MovesToAPanelThatDrawsMenusAndBackWhenThatEnds) {
  const StatusIcon icon;
  const auto tray = startPlain(Panel::tint2);
  ASSERT_TRUE(StatusIcon::comes());
  EXPECT_FALSE(StatusIcon::isAtTheTop());

  auto panel = startPlain(Panel::xfce);
  EXPECT_TRUE(runMainLoopUntil(&StatusIcon::isAtTheTop, desktop::startTimeout));
  EXPECT_FALSE(isInXEmbedTray());

  panel.end();
  EXPECT_TRUE(StatusIcon::goes() || !StatusIcon::isAtTheTop());
  ASSERT_TRUE(StatusIcon::comes());
  EXPECT_FALSE(StatusIcon::isAtTheTop());
  EXPECT_TRUE(isInXEmbedTray());
}

TEST(StatusItem, APanelThatDoesNotAnswerHoldsNothingUp) {
  auto panel = startPlain(Panel::xfce);
  {
    const StatusIcon first;
    ASSERT_TRUE(StatusIcon::comes());
  }
  panel.signal(SIGSTOP);
  QElapsedTimer sinceTick;
  qint64 longest = 0;
  QTimer ticking;
  ticking.callOnTimeout([&] { longest = std::max(longest, sinceTick.restart()); });
  ticking.start(10);
  sinceTick.start();

  StatusIcon icon;
  runMainLoop(desktop::Milliseconds{800});
  icon.item.setVisible(false);
  icon.item.setVisible(true);
  runMainLoop(desktop::Milliseconds{200});
  // Qt waits 25 seconds for an answer.
  EXPECT_LT(longest, 10000);

  panel.signal(SIGCONT);
  EXPECT_TRUE(StatusIcon::comes());
}

}  // namespace
}  // namespace tilwin::contract
