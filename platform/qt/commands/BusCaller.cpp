#include "platform/qt/commands/BusCaller.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QEventLoop>
#include <QSignalMapper>
#include <QStringList>
#include <QVariantList>
#include <chrono>
#include <utility>
#include <variant>

#include "core/commands/CommandParser.h"
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

bool isToWatch(std::span<const std::string> arguments) {
  const auto parsed = CommandParser::parse(arguments);
  const auto* const request = std::get_if<CommandRequest>(&parsed);
  return request != nullptr && request->command == CommandId::watch;
}

/// The running instance, as seen from another process.
class Instance {
public:
  Instance(QDBusConnection bus, const std::string& display)
      : bus_(std::move(bus)), service_(QString::fromStdString(QtInstance::serviceName(display))) {}

  std::optional<CommandReply> run(std::span<const std::string> arguments) {
    QStringList words;
    for (const std::string& each : arguments) words.append(QString::fromStdString(each));
    const auto values = call(QLatin1String(BusCommands::interfaceName), "Run", {words});
    if (!values) return std::nullopt;
    if (values->size() != 3) return noAnswer();
    return CommandReply{.status = values->at(0).toInt(),
                        .output = values->at(1).toString().toStdString(),
                        .problem = values->at(2).toString().toStdString()};
  }

  /// Listens before it asks whether there is anybody to be heard, so that no line is missed.
  std::optional<CommandReply> watch(const BusCaller::LineHandler& onLine) {
    QEventLoop untilTheEnd;
    const QDBusServiceWatcher owner(service_, bus_, QDBusServiceWatcher::WatchForUnregistration);
    QObject::connect(&owner, &QDBusServiceWatcher::serviceUnregistered, &untilTheEnd, &QEventLoop::quit);
    bus_.connect(QString(), "/org/freedesktop/DBus/Local", "org.freedesktop.DBus.Local", "Disconnected",
                 &untilTheEnd, SLOT(quit()));
    // The bus calls slots by their names, and a lambda has none: the mapper's signal stands in between.
    QSignalMapper relay;
    QObject::connect(&relay, &QSignalMapper::mappedString, &relay,
                     [&onLine](const QString& line) { onLine(line.toStdString()); });
    bus_.connect(service_, QLatin1String(BusCommands::path), QLatin1String(BusCommands::interfaceName),
                 "Happened", &relay, SIGNAL(mappedString(QString)));
    const auto version = call("org.freedesktop.DBus.Properties", "Get",
                              {QLatin1String(BusCommands::interfaceName), "Version"});
    if (!version) return std::nullopt;
    if (version->isEmpty()) return noAnswer();
    untilTheEnd.exec();
    return CommandReply::done("");
  }

private:
  static CommandReply noAnswer() {
    return CommandReply::failed(exit_status::couldNot, "Tilwin did not answer.");
  }

  /// What it returns, empty after an error; nothing if nobody takes commands.
  std::optional<QVariantList> call(const QString& interface, const QString& method,
                                   const QVariantList& arguments) {
    auto message =
        QDBusMessage::createMethodCall(service_, QLatin1String(BusCommands::path), interface, method);
    message.setAutoStartService(false);
    message.setArguments(arguments);
    const auto limit = static_cast<int>(std::chrono::milliseconds(longestAnswer).count());
    const QDBusMessage answer = bus_.call(message, QDBus::Block, limit);
    if (hasOwnerGone(answer) || takesNone(answer)) return std::nullopt;
    return answer.type() == QDBusMessage::ReplyMessage ? answer.arguments() : QVariantList();
  }

  QDBusConnection bus_;
  QString service_;
};

}  // namespace

std::optional<CommandReply> BusCaller::ask(const std::string& display, std::span<const std::string> arguments,
                                           const LineHandler& onLine) {
  const SessionBusConnection bus(patienceWithBus);
  if (!bus.isConnected()) return std::nullopt;
  Instance instance(bus.connection(), display);
  return isToWatch(arguments) ? instance.watch(onLine) : instance.run(arguments);
}

}  // namespace tilwin::qt
