#include "tests/contract/system/BusGarbage.h"

#include <QByteArray>
#include <QChar>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QStringList>
#include <QVariantList>
#include <QVariantMap>

#include "platform/qt/commands/BusCommands.h"

namespace tilwin::contract {
namespace {

constexpr int deepest = 4;
constexpr int longestText = 3000;

const QStringList interfaces{qt::BusCommands::interfaceName, "org.freedesktop.DBus.Properties",
                             "org.freedesktop.DBus.Introspectable", "org.example.Nobody", QString()};
const QStringList members{"Run",   "Snap", "SnapToArea", "ApplyLayout",  "Place",       "Set",
                          "Quit",  "Get",  "GetAll",     "Introspect",   "Happened",    "Version",
                          "Areas", "a",    "SaveLayout", "DeleteLayout", "ShowSettings"};
/// What a call without a mistake has, so that some get far.
const QStringList words{"snap", "leftHalf", "watch", "--json", "Areas", qt::BusCommands::interfaceName};

}  // namespace

QDBusMessage BusGarbage::call() {
  auto message = QDBusMessage::createMethodCall(service_, qt::BusCommands::path,
                                                interfaces[below(static_cast<int>(interfaces.size()))],
                                                members[below(static_cast<int>(members.size()))]);
  QVariantList arguments;
  for (int rest = below(4); rest > 0; --rest) arguments.append(value(0));
  message.setArguments(arguments);
  return message;
}

QString BusGarbage::text() {
  if (below(2) == 0) return words[below(static_cast<int>(words.size()))];
  QString result;
  // No surrogates: what is no UTF-8 never leaves the sender.
  for (int rest = below(below(20) == 0 ? longestText : 12); rest > 0; --rest)
    result.append(QChar(static_cast<char16_t>(1 + below(0xD7FF))));
  return result;
}

QVariant BusGarbage::value(int depth) {
  switch (below(depth < deepest ? 10 : 7)) {
    case 0:
      return below(1 << 30);
    case 1:
      return below(2) == 0;
    case 2:
      return -1e300 / (1 + below(9));
    case 3:
      return QByteArray(below(100), '\0');
    case 4:
      return QVariant::fromValue(QDBusObjectPath("/"));
    case 5:
      return QStringList{text(), text()};
    case 6:
      return text();
    case 7:
      return QVariantList{value(depth + 1), value(depth + 1)};
    case 8:
      return QVariantMap{{text(), value(depth + 1)}};
    default:
      return QVariant::fromValue(QDBusVariant(value(depth + 1)));
  }
}

}  // namespace tilwin::contract
