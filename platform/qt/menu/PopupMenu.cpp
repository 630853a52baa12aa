#include "platform/qt/menu/PopupMenu.h"

#include <QAction>
#include <QMetaObject>

namespace tilwin::qt {
namespace {

/// In the text of an action, an ampersand marks the letter that follows.
QString actionText(const std::string& title) { return titleText(title).replace('&', "&&"); }

}  // namespace

QString titleText(const std::string& title) {
  QString text = QString::fromStdString(title);
  for (QChar& character : text) {
    if (character.category() == QChar::Other_Control) character = ' ';
  }
  return text;
}

void PopupMenu::open(const MenuModel& model, QPoint at) {
  menu_.close();
  menu_.clear();
  // Clearing removes the entries of submenus, not the submenus. One may be handling the click that led here.
  for (auto* submenu : menu_.findChildren<QMenu*>(Qt::FindDirectChildrenOnly)) submenu->deleteLater();
  fill(menu_, model.items);
  menu_.popup(at);
}

void PopupMenu::fill(QMenu& menu, const std::vector<MenuItem>& items) {
  for (const auto& item : items) {
    if (item.kind == MenuItem::Kind::separator) {
      menu.addSeparator();
    } else if (item.kind == MenuItem::Kind::submenu) {
      fill(*menu.addMenu(actionText(item.title)), item.items);
    } else {
      addCommand(menu, item);
    }
  }
}

void PopupMenu::addCommand(QMenu& menu, const MenuItem& item) {
  QAction* action = menu.addAction(actionText(item.title));
  action->setCheckable(item.isChecked);
  action->setChecked(item.isChecked);
  action->setEnabled(item.isEnabled);
  QObject::connect(action, &QAction::triggered, &menu_, [this, choice = item.choice] {
    QMetaObject::invokeMethod(
        &menu_, [this, choice] { onChoice_(choice); }, Qt::QueuedConnection);
  });
}

}  // namespace tilwin::qt
