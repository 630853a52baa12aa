#pragma once

#include <QDBusArgument>
#include <QDBusVariant>
#include <QList>
#include <QString>
#include <QStringList>
#include <QVariantMap>

/// The compound types of com.canonical.dbusmenu, as Qt sends them over the bus.

namespace tilwin::qt::bus {

/// (ia{sv})
struct EntryProperties {
  int entry = 0;
  QVariantMap properties{};
};

/// (ias)
struct EntryPropertyNames {
  int entry = 0;
  QStringList names{};
};

/// (ia{sv}av): an entry with its properties and the entries below it.
struct Layout {
  int entry = 0;
  QVariantMap properties{};
  QList<Layout> children{};
};

/// (isvu)
struct Event {
  int entry = 0;
  QString name{};
  QDBusVariant data{};
  unsigned int time = 0;
};

QDBusArgument& operator<<(QDBusArgument& to, const EntryProperties& value);
const QDBusArgument& operator>>(const QDBusArgument& from, EntryProperties& value);
QDBusArgument& operator<<(QDBusArgument& to, const EntryPropertyNames& value);
const QDBusArgument& operator>>(const QDBusArgument& from, EntryPropertyNames& value);
QDBusArgument& operator<<(QDBusArgument& to, const Layout& value);
const QDBusArgument& operator>>(const QDBusArgument& from, Layout& value);
QDBusArgument& operator<<(QDBusArgument& to, const Event& value);
const QDBusArgument& operator>>(const QDBusArgument& from, Event& value);

/// Makes these types known to Qt; more than once does no harm.
void registerMenuTypes();

}  // namespace tilwin::qt::bus

Q_DECLARE_METATYPE(tilwin::qt::bus::EntryProperties)
Q_DECLARE_METATYPE(tilwin::qt::bus::EntryPropertyNames)
Q_DECLARE_METATYPE(tilwin::qt::bus::Layout)
Q_DECLARE_METATYPE(tilwin::qt::bus::Event)
