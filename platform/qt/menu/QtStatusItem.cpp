#include "platform/qt/menu/QtStatusItem.h"

#include <QCursor>
#include <QDBusConnection>
#include <QMetaObject>
#include <QSystemTrayIcon>
#include <utility>

namespace tilwin::qt {

QtStatusItem::Installed::Installed(const TemplateImage& image, const MenuMaker& makeMenu,
                                   const ChoiceHandler& onChoice, std::function<void()> onHostsChange)
    : popup(onChoice),
      menu(makeMenu, onChoice),
      item(QDBusConnection::sessionBus(), image, menu,
           [this, makeMenu] { popup.open(makeMenu(), QCursor::pos()); }),
      tray(image, [this, makeMenu] { popup.open(makeMenu(), QCursor::pos()); }),
      hosts(QDBusConnection::sessionBus(), std::move(onHostsChange)) {}

void QtStatusItem::install(const TemplateImage& image, MenuMaker makeMenu, ChoiceHandler onChoice) {
  image_ = image;
  makeMenu_ = std::move(makeMenu);
  onChoice_ = std::move(onChoice);
  // Connecting to the bus may take a while.
  QMetaObject::invokeMethod(
      &context_, [this] { start(); }, Qt::QueuedConnection);
}

void QtStatusItem::setVisible(bool visible) {
  visible_ = visible;
  if (installed_) draw();
}

std::optional<bool> QtStatusItem::isShown() const {
  using Presence = NotifierHosts::Presence;
  if (!visible_ || !installed_ || installed_->hosts.presence() == Presence::unknown) return std::nullopt;
  return installed_->hosts.presence() == Presence::present || QSystemTrayIcon::isSystemTrayAvailable();
}

void QtStatusItem::start() {
  installed_.emplace(image_, makeMenu_, onChoice_, [this] { draw(); });
}

void QtStatusItem::draw() {
  using Presence = NotifierHosts::Presence;
  const auto presence = installed_->hosts.presence();
  installed_->tray.setVisible(visible_ && presence == Presence::absent);
  const QString watcher = visible_ && presence == Presence::present ? installed_->hosts.watcher() : QString();
  if (watcher == std::exchange(knownTo_, watcher)) return;
  if (watcher.isEmpty()) {
    installed_->item.hide();
  } else {
    installed_->item.show(watcher);
  }
}

}  // namespace tilwin::qt
