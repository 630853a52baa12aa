#pragma once

#include <QStringList>
#include <QVariantList>
#include <QVariantMap>
#include <cstdint>
#include <functional>

#include "platform/ports/StatusItem.h"
#include "platform/qt/bus/BusObject.h"
#include "platform/qt/menu/NumberedMenu.h"

namespace tilwin::qt {

/// A menu that a panel draws. The panel says when it is about to open the menu and is told whether it must
/// read it again. Source: com.canonical.dbusmenu, version 3 (dbus-menu.xml of libdbusmenu).
class BusMenu : public BusObject {
public:
  using ChoiceHandler = std::function<void(const MenuChoice&)>;

  /// The menu is made whenever the panel is about to open it, when it reads the menu for the first time, and
  /// after each choice. The handler is called through the event loop.
  BusMenu(StatusItem::MenuMaker makeMenu, ChoiceHandler onChoice);

private:
  void addMethods();
  /// Makes the menu anew, tells panels what differs and returns whether they must read it again.
  bool remake();
  [[nodiscard]] bool isOutdated(int entry);
  QVariantList layout(const QVariantList& arguments);
  QVariantList propertiesOf(const QVariantList& arguments) const;
  QVariantList property(const QVariantList& arguments) const;
  QVariantList entryEvent(const QVariantList& arguments);
  QVariantList entryEvents(const QVariantList& arguments);
  QVariantList aboutToShowGroup(const QVariantList& arguments);
  /// Returns whether the entry exists.
  bool happened(int entry, const QString& event);
  void chosen(const MenuChoice& choice);
  [[nodiscard]] const NumberedMenu::Entry* find(int entry) const;

  StatusItem::MenuMaker makeMenu_;
  ChoiceHandler onChoice_;
  NumberedMenu menu_;
  /// A panel may still show the menu before.
  NumberedMenu former_;
  std::uint32_t revision_ = 0;
};

}  // namespace tilwin::qt
