#include <gtest/gtest.h>

#include <QApplication>
#include <QMenu>
#include <QScreen>
#include <optional>

#include "tests/contract/qt/Pictures.h"
#include "tests/contract/qt/StatusIcon.h"

namespace tilwin::contract {
namespace {

MenuItem snap(const std::string& title) { return MenuItem::command(title, {"snap", title}); }

MenuModel likeThePrograms() {
  return {
      {MenuItem::separator(),
       MenuItem::submenu("Halves", {snap("Left Half    Ctrl+Alt+Left"), snap("Right Half    Ctrl+Alt+Right"),
                                    snap("Top Half    Ctrl+Alt+Up")}),
       MenuItem::submenu("Fourths (wide screens)", {snap("First Fourth")}), MenuItem::separator(),
       MenuItem::submenu("Layouts", {snap("Save this arrangement…")}), MenuItem::separator(),
       MenuItem::command("Never move windows of R&D_Mail", {"ignore", "mail"}, true),
       MenuItem::command("Settings…", {"settings", ""}), MenuItem::command("Quit Tilwin", {"quit", ""})}};
}

/// Pictures of the open menu with a submenu, to be looked at.
class MenuPicture : public testing::TestWithParam<bool> {};

TEST_P(MenuPicture, ShowsAMenuOnTheScreen) {
  const auto panel = startPlain(Panel::tint2, GetParam() ? PanelLook::dark : PanelLook::light);
  std::optional<DarkColours> dark;
  if (GetParam()) dark.emplace();
  StatusIcon icon;
  icon.menu = likeThePrograms();
  ASSERT_TRUE(StatusIcon::comes());
  StatusIcon::click();
  const auto menu = [] { return QApplication::activePopupWidget(); };
  ASSERT_TRUE(runMainLoopUntil([&] { return menu() != nullptr; }, desktop::answerTimeout));
  const auto* top = menu();
  EXPECT_TRUE(top->screen()->geometry().contains(top->geometry()));
  qtDesktop().input().press("Down");
  qtDesktop().input().press("Right");
  ASSERT_TRUE(runMainLoopUntil([&] { return menu() != top; }, desktop::answerTimeout));
  const QRect shown = top->geometry() | menu()->geometry();
  keepPicture(shown.adjusted(-10, -10, 10, 40), GetParam() ? "menu-dark" : "menu-light");
  qtDesktop().input().press("Return");
  EXPECT_TRUE(icon.isChosen(1));
}

TEST(OpenMenu, ClosesAtAClickOnTheIcon) {
  const auto panel = startPlain(Panel::tint2);
  const StatusIcon icon;
  ASSERT_TRUE(StatusIcon::comes());
  StatusIcon::click();
  ASSERT_TRUE(
      runMainLoopUntil([] { return QApplication::activePopupWidget() != nullptr; }, desktop::answerTimeout));
  runMainLoop(desktop::Milliseconds{600});
  StatusIcon::click();
  EXPECT_TRUE(
      runMainLoopUntil([] { return QApplication::activePopupWidget() == nullptr; }, desktop::answerTimeout));
  runMainLoop(desktop::Milliseconds{300});
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

INSTANTIATE_TEST_SUITE_P(Colours, MenuPicture, testing::Bool(),
                         [](const auto& test) { return test.param ? "Dark" : "Light"; });

}  // namespace
}  // namespace tilwin::contract
