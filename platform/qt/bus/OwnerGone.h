#pragma once

#include <QDBusMessage>

namespace tilwin::qt {

/// Whether there was nobody to answer a call, or somebody who left without an answer. The bus tells both; if
/// the owner of the name only takes too long, it is this end that gives up. Source: D-Bus specification,
/// "Message Bus Messages".
[[nodiscard]] bool hasOwnerGone(const QDBusMessage& reply);

}  // namespace tilwin::qt
