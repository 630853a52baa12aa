#include "platform/qt/bus/OwnerGone.h"

#include <QDBusError>
#include <QLatin1String>
#include <QString>

namespace tilwin::qt {

bool hasOwnerGone(const QDBusMessage& reply) {
  const QDBusError error(reply);
  // What the bus says to a call that is not to start a service.
  if (error.name() == QLatin1String("org.freedesktop.DBus.Error.NameHasNoOwner")) return true;
  return error.type() == QDBusError::ServiceUnknown ||
         (error.type() == QDBusError::NoReply && reply.service() == QLatin1String("org.freedesktop.DBus"));
}

}  // namespace tilwin::qt
