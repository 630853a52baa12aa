#include <gtest/gtest.h>

#include <QImage>
#include <QWidget>
#include <algorithm>
#include <cstdint>

#include "tests/contract/qt/StatusIcon.h"
#include "tests/desktop/harness/Screenshot.h"

namespace tilwin::contract {
namespace {

using Chosen = std::vector<std::string>;

/// Where the panel's menu opens, without its right edge: how wide it is depends on what it was before.
constexpr Rect menuArea{0, 34, 80, 300};

QImage look() { return desktop::screenshot(qtDesktop().desktop().connection(), menuArea); }

/// Whether a menu is in view; the icon's tool tip opens in the same place.
bool isMenuOpen() {
  auto& desktop = qtDesktop().desktop();
  return std::ranges::any_of(desktop.inView(), [&](const desktop::WindowId window) {
    const auto types = desktop.connection().numbers(window, "_NET_WM_WINDOW_TYPE");
    return std::ranges::any_of(types, [&](const std::uint32_t type) {
      const auto name = desktop.connection().atomName(type);
      return name == "_NET_WM_WINDOW_TYPE_POPUP_MENU" || name == "_NET_WM_WINDOW_TYPE_DROPDOWN_MENU";
    });
  });
}

/// A panel that has just started opens no menu until it has read it once, so a person clicks again.
constexpr desktop::Milliseconds firstRead{2000};

/// The picture of the area once it stays the same for a while.
QImage restingLook() {
  QImage seen = look();
  QImage before;
  runMainLoopUntil(
      [&] {
        before = seen;
        runMainLoop(desktop::Milliseconds{300});
        seen = look();
        return seen == before;
      },
      desktop::answerTimeout);
  return seen;
}

/// xfce4-panel shows the icon and draws its menu.
class XfceStatusItem : public testing::Test {
protected:
  void SetUp() override { ASSERT_TRUE(StatusIcon::comes()); }

  /// Opens the menu and returns how it looks.
  static QImage open(int button = 1) {
    const auto opens = [&] {
      StatusIcon::click(button);
      return runMainLoopUntil(isMenuOpen, firstRead);
    };
    EXPECT_TRUE(runMainLoopUntil(opens, desktop::startTimeout));
    return restingLook();
  }
  static void close() {
    qtDesktop().input().press("Escape");
    EXPECT_TRUE(isClosed());
  }
  static bool isClosed() {
    return runMainLoopUntil([] { return !isMenuOpen(); }, desktop::answerTimeout);
  }
  static void press(const std::vector<const char*>& keys) {
    for (const auto* key : keys) {
      qtDesktop().input().press(key);
      restingLook();
    }
  }

  desktop::ChildProcess panel = startPlain(Panel::xfce);
  StatusIcon icon;
};

TEST_F(XfceStatusItem, BothMouseButtonsOpenItsMenu) {
  for (const int button : {1, 3}) {
    open(button);
    press({"Down", "Down", "Return"});
    EXPECT_TRUE(icon.isChosen(1));
    EXPECT_EQ(icon.chosen, Chosen{"second"});
    icon.chosen.clear();
    ASSERT_TRUE(isClosed());
  }
}

TEST_F(XfceStatusItem, ItsMenuHasWhatIsNewWhenItOpens) {
  open();
  close();
  icon.menu.items.insert(icon.menu.items.begin(), MenuItem::command("New", {"new", ""}));
  open();
  press({"Down", "Return"});
  EXPECT_TRUE(icon.isChosen(1));
  icon.menu.items.erase(icon.menu.items.begin(), icon.menu.items.begin() + 2);
  open();
  press({"Down", "Return"});
  EXPECT_TRUE(icon.isChosen(2));
  EXPECT_EQ(icon.chosen, (Chosen{"new", "second"}));
}

TEST_F(XfceStatusItem, ItsMenuShowsTitlesAndCheckMarksOfTheMoment) {
  const QImage plain = open();
  close();
  icon.menu.items[1].isChecked = true;
  const QImage checked = open();
  EXPECT_TRUE(checked != plain);
  close();
  icon.menu.items[1] = MenuItem::command("Other", {"second", "x"}, true);
  EXPECT_TRUE(open() != checked);
  close();
  icon.menu.items[1] = MenuItem::command("Second", {"second", ""});
  open();
  EXPECT_TRUE(runMainLoopUntil([&] { return look() == plain; }, desktop::answerTimeout));
  close();
}

TEST_F(XfceStatusItem, EntriesOfSubmenusCanBeChosen) {
  icon.menu.items.insert(icon.menu.items.begin(),
                         MenuItem::submenu("Layouts", {MenuItem::command("Desk", {"desk", ""}),
                                                       MenuItem::command("Writing", {"writing", ""})}));
  open();
  press({"Down", "Right", "Down", "Return"});
  EXPECT_TRUE(icon.isChosen(1));
  EXPECT_EQ(icon.chosen, Chosen{"writing"});
}

TEST_F(XfceStatusItem, CanBeHiddenAndShownAgain) {
  icon.item.setVisible(false);
  EXPECT_TRUE(StatusIcon::goes());
  icon.item.setVisible(true);
  ASSERT_TRUE(StatusIcon::comes());
  open();
  press({"Down", "Return"});
  EXPECT_TRUE(icon.isChosen(1));
}

TEST_F(XfceStatusItem, ComesAgainWhenThePanelIsRestarted) {
  panel.end();
  EXPECT_TRUE(StatusIcon::goes());
  panel = startPlain(Panel::xfce);
  ASSERT_TRUE(StatusIcon::comes());
  EXPECT_TRUE(StatusIcon::isAtTheTop());
  open();
  press({"Down", "Return"});
  EXPECT_TRUE(icon.isChosen(1));
}

}  // namespace
}  // namespace tilwin::contract
