#pragma once

#include <QDBusConnection>
#include <QPoint>
#include <QString>
#include <functional>

#include "platform/ports/TemplateImage.h"
#include "platform/qt/bus/BusObject.h"
#include "platform/qt/menu/BusMenu.h"

namespace tilwin::qt {

/// The status icon as an object on the session bus, which the panel draws together with its menu. Source:
/// StatusNotifierItem (freedesktop.org), by the interface names of KDE, which all panels use.
class NotifierItem : public BusObject {
public:
  /// `open` opens the menu as a window of this program, for panels that cannot draw menus. The menu must
  /// outlive this.
  NotifierItem(QDBusConnection bus, TemplateImage image, BusMenu& menu, std::function<void()> open);
  NotifierItem(const NotifierItem&) = delete;
  NotifierItem& operator=(const NotifierItem&) = delete;
  ~NotifierItem() override { hide(); }

  /// Appears in the panels that this watcher, a name on the bus, serves. Does not wait for an answer.
  void show(const QString& watcher);
  /// Disappears from all panels.
  void hide();

private:
  void addLook();
  void addCalls();
  void tellBus(const QString& method, const QVariantList& arguments);

  QDBusConnection bus_;
  TemplateImage image_;
  BusMenu& menu_;
  std::function<void()> open_;
  QString name_;
};

}  // namespace tilwin::qt
