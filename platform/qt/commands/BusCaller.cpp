#include "platform/qt/commands/BusCaller.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QStringList>
#include <chrono>

#include "platform/qt/bus/OwnerGone.h"
#include "platform/qt/bus/SessionBusConnection.h"
#include "platform/qt/commands/BusCommands.h"
#include "platform/qt/system/QtInstance.h"

namespace tilwin::qt {
namespace {

constexpr std::chrono::seconds patienceWithBus{1};
constexpr std::chrono::seconds longestAnswer{10};

/// An instance that has its name, and does not take commands yet or any more.
bool takesNone(const QDBusMessage& reply) {
  const auto error = QDBusError(reply).type();
  return error == QDBusError::UnknownObject || error == QDBusError::UnknownInterface ||
         error == QDBusError::UnknownMethod;
}

}  // namespace

std::optional<CommandReply> BusCaller::ask(const std::string& display,
                                           std::span<const std::string> arguments) {
  const SessionBusConnection bus(patienceWithBus);
  if (!bus.isConnected()) return std::nullopt;
  QStringList words;
  for (const std::string& each : arguments) words.append(QString::fromStdString(each));
  auto call = QDBusMessage::createMethodCall(
      QString::fromStdString(QtInstance::serviceName(display)), QLatin1String(BusCommands::path),
      QLatin1String(BusCommands::interfaceName), QStringLiteral("Run"));
  call.setAutoStartService(false);
  call << words;
  const auto limit = static_cast<int>(std::chrono::milliseconds(longestAnswer).count());
  const QDBusMessage answer = bus.connection().call(call, QDBus::Block, limit);
  if (hasOwnerGone(answer) || takesNone(answer)) return std::nullopt;
  const auto values = answer.arguments();
  if (answer.type() != QDBusMessage::ReplyMessage || values.size() != 3) {
    return CommandReply::failed(exit_status::couldNot, "Tilwin did not answer.");
  }
  return CommandReply{.status = values[0].toInt(),
                      .output = values[1].toString().toStdString(),
                      .problem = values[2].toString().toStdString()};
}

}  // namespace tilwin::qt
