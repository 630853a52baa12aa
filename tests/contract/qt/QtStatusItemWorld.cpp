#include <QAction>
#include <QApplication>
#include <QMenu>

#include "platform/qt/menu/QtStatusItem.h"
#include "tests/contract/MainLoop.h"
#include "tests/contract/StatusItemContract.h"
#include "tests/contract/qt/IconOnScreen.h"
#include "tests/contract/qt/QtDesktop.h"

namespace tilwin::contract {
namespace {

QMenu* frontMenu() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }

/// The title as a menu draws it: an ampersand vanishes and underlines the next letter, a tab begins the
/// shortcut.
std::string drawnTitle(const QAction& action) {
  const QString text = action.text();
  QString drawn;
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (text[i] == '&') ++i;
    if (i < text.size()) drawn += text[i];
  }
  if (!action.shortcut().isEmpty()) drawn += " (key equivalent)";
  return drawn.replace('\t', " (shortcut) ").toStdString();
}

ShownEntry drawnEntry(const QAction& action);

std::vector<ShownEntry> drawnEntries(const QMenu& menu) {
  std::vector<ShownEntry> entries;
  for (const auto* action : menu.actions()) {
    // Separators that separate nothing have no room.
    if (menu.isVisible() && menu.actionGeometry(const_cast<QAction*>(action)).isEmpty()) continue;
    entries.push_back(drawnEntry(*action));
  }
  return entries;
}

ShownEntry drawnEntry(const QAction& action) {
  if (action.isSeparator()) return {.kind = MenuItem::Kind::separator};
  ShownEntry entry{
      .title = drawnTitle(action), .isChecked = action.isChecked(), .isEnabled = action.isEnabled()};
  if (const auto* submenu = action.menu<QMenu*>()) {
    entry.kind = MenuItem::Kind::submenu;
    entry.items = drawnEntries(*submenu);
  }
  return entry;
}

/// Under a panel with an XEmbed tray, the menu is a window of this process.
class QtStatusItemWorld : public StatusItemWorld {
public:
  StatusItem& item() override { return item_; }
  bool isIconShown() override { return findIcon().has_value(); }
  void openMenu(MouseButton button) override {
    const auto icon = findIcon();
    ASSERT_TRUE(icon);
    qtDesktop().input().click(icon->centre(), button == MouseButton::left ? 1 : 3);
    EXPECT_TRUE(settle([&] { return isMenuOpen(); }));
  }
  bool isMenuOpen() override { return frontMenu() != nullptr; }
  std::vector<ShownEntry> shown() override {
    return frontMenu() == nullptr ? std::vector<ShownEntry>() : drawnEntries(*frontMenu());
  }
  void choose(const std::vector<std::string>& path) override {
    for (const auto& title : path) ASSERT_TRUE(click(title)) << title;
  }
  void dismiss() override { qtDesktop().input().press("Escape"); }
  void rest() override { runMainLoop(desktop::Milliseconds{300}); }
  bool settle(const std::function<bool()>& condition) override {
    return runMainLoopUntil(condition, desktop::answerTimeout);
  }

private:
  /// Clicks on the entry in the front menu; a submenu is open afterwards.
  bool click(const std::string& title) {
    QMenu* menu = frontMenu();
    if (menu == nullptr) return false;
    for (auto* action : menu->actions()) {
      if (action->isSeparator() || drawnTitle(*action) != title) continue;
      const QPoint at = menu->mapToGlobal(menu->actionGeometry(action).center());
      qtDesktop().input().click({at.x(), at.y()});
      const auto* submenu = action->menu<QMenu*>();
      return submenu == nullptr || settle([&] { return frontMenu() == submenu; });
    }
    return false;
  }

  desktop::ChildProcess panel_ = startPlain(Panel::tint2);
  qt::QtStatusItem item_;
};

std::unique_ptr<StatusItemWorld> makeQtStatusItem() { return std::make_unique<QtStatusItemWorld>(); }

}  // namespace

INSTANTIATE_TEST_SUITE_P(Qt, StatusItemContract, testing::Values(&makeQtStatusItem));

}  // namespace tilwin::contract
