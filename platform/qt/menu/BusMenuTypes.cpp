#include "platform/qt/menu/BusMenuTypes.h"

#include <QDBusMetaType>
#include <QMetaType>
#include <QVariant>

namespace tilwin::qt::bus {

QDBusArgument& operator<<(QDBusArgument& to, const EntryProperties& value) {
  to.beginStructure();
  to << value.entry << value.properties;
  to.endStructure();
  return to;
}

const QDBusArgument& operator>>(const QDBusArgument& from, EntryProperties& value) {
  from.beginStructure();
  from >> value.entry >> value.properties;
  from.endStructure();
  return from;
}

QDBusArgument& operator<<(QDBusArgument& to, const EntryPropertyNames& value) {
  to.beginStructure();
  to << value.entry << value.names;
  to.endStructure();
  return to;
}

const QDBusArgument& operator>>(const QDBusArgument& from, EntryPropertyNames& value) {
  from.beginStructure();
  from >> value.entry >> value.names;
  from.endStructure();
  return from;
}

QDBusArgument& operator<<(QDBusArgument& to, const Layout& value) {
  to.beginStructure();
  to << value.entry << value.properties;
  to.beginArray(QMetaType::fromType<QDBusVariant>());
  for (const auto& child : value.children) to << QDBusVariant(QVariant::fromValue(child));
  to.endArray();
  to.endStructure();
  return to;
}

const QDBusArgument& operator>>(const QDBusArgument& from, Layout& value) {
  from.beginStructure();
  from >> value.entry >> value.properties;
  from.beginArray();
  while (!from.atEnd()) {
    QDBusVariant child;
    from >> child;
    value.children.push_back(qdbus_cast<Layout>(child.variant()));
  }
  from.endArray();
  from.endStructure();
  return from;
}

QDBusArgument& operator<<(QDBusArgument& to, const Event& value) {
  to.beginStructure();
  to << value.entry << value.name << value.data << value.time;
  to.endStructure();
  return to;
}

const QDBusArgument& operator>>(const QDBusArgument& from, Event& value) {
  from.beginStructure();
  from >> value.entry >> value.name >> value.data >> value.time;
  from.endStructure();
  return from;
}

void registerMenuTypes() {
  qDBusRegisterMetaType<EntryProperties>();
  qDBusRegisterMetaType<QList<EntryProperties>>();
  qDBusRegisterMetaType<EntryPropertyNames>();
  qDBusRegisterMetaType<QList<EntryPropertyNames>>();
  qDBusRegisterMetaType<Layout>();
  qDBusRegisterMetaType<Event>();
  qDBusRegisterMetaType<QList<Event>>();
}

}  // namespace tilwin::qt::bus
