#include "platform/qt/bus/BusObject.h"

#include <QDBusArgument>
#include <QDBusMetaType>
#include <QDBusVariant>
#include <QMetaType>
#include <QStringList>
#include <QVariantMap>
#include <utility>

namespace tilwin::qt {
namespace {

constexpr const char* propertiesInterface = "org.freedesktop.DBus.Properties";

/// The arguments of a method or signal as XML; each complete type of the signature is one argument.
QString argumentsText(const QString& signature, const char* direction) {
  QString text;
  qsizetype start = 0;
  int depth = 0;
  for (qsizetype end = 0; end < signature.size(); ++end) {
    const QChar type = signature[end];
    if (type == '(' || type == '{') ++depth;
    if (type == ')' || type == '}') --depth;
    if (depth > 0 || type == 'a') continue;
    text += QString(R"(<arg type="%1"%2/>)").arg(signature.mid(start, end + 1 - start), direction);
    start = end + 1;
  }
  return text;
}

}  // namespace

BusObject::BusObject(QString path, QString interface)
    : path_(std::move(path)), interface_(std::move(interface)) {}

void BusObject::offer(const QDBusConnection& bus) {
  bus_ = bus;
  bus_.registerVirtualObject(path_, this);
}

QString BusObject::introspect(const QString&) const {
  QString text = QString(R"(<interface name="%1">)").arg(interface_);
  for (const auto& [name, row] : methods_) {
    text += QString(R"(<method name="%1">%2%3</method>)")
                .arg(name, argumentsText(row.signature, R"( direction="in")"),
                     argumentsText(row.returns, R"( direction="out")"));
  }
  for (const auto& [name, row] : properties_) {
    text += QString(R"(<property name="%1" type="%2" access="read"/>)").arg(name, row.signature);
  }
  for (const auto& [name, signature] : signals_) {
    text += QString(R"(<signal name="%1">%2</signal>)").arg(name, argumentsText(signature, ""));
  }
  return text + "</interface>";
}

bool BusObject::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
  if (message.interface() == propertiesInterface) return answerProperties(message, connection);
  if (message.interface() != interface_ && !message.interface().isEmpty()) return false;
  const auto method = methods_.find(message.member());
  if (method == methods_.end() || message.signature() != method->second.signature) return false;
  const auto answer = method->second.call(message.arguments());
  if (!message.isReplyRequired()) return true;
  const auto* const error = std::get_if<BusError>(&answer);
  return connection.send(error == nullptr ? message.createReply(std::get<QVariantList>(answer))
                                          : message.createErrorReply(error->name, error->message));
}

void BusObject::addMethod(const QString& name, const QString& signature, const QString& returns,
                          Method method) {
  methods_[name] = {signature, returns, std::move(method)};
}

void BusObject::addProperty(const QString& name, const QString& signature, Property property) {
  properties_[name] = {signature, std::move(property), {}};
}

void BusObject::announceChangedProperties() {
  QVariantMap changed;
  for (auto& [name, row] : properties_) {
    QVariant value = row.read();
    if (value == row.announced) continue;
    changed[name] = value;
    row.announced = std::move(value);
  }
  if (changed.isEmpty() || !bus_.isConnected()) return;
  auto message = QDBusMessage::createSignal(path_, propertiesInterface, "PropertiesChanged");
  message.setArguments({interface_, changed, QStringList()});
  bus_.send(message);
}

void BusObject::announce(const QString& signal, const QVariantList& arguments) const {
  if (!bus_.isConnected()) return;
  auto message = QDBusMessage::createSignal(path_, interface_, signal);
  message.setArguments(arguments);
  bus_.send(message);
}

bool BusObject::answerProperties(const QDBusMessage& message, const QDBusConnection& connection) const {
  const auto arguments = message.arguments();
  if (arguments.isEmpty() || arguments[0].toString() != interface_) return false;
  if (message.member() == "GetAll" && message.signature() == "s") {
    QVariantMap all;
    for (const auto& [name, row] : properties_) all[name] = row.read();
    return connection.send(message.createReply(all));
  }
  if (message.member() != "Get" || message.signature() != "ss") return false;
  const auto property = properties_.find(arguments[1].toString());
  if (property == properties_.end()) return false;
  return connection.send(message.createReply(QVariant::fromValue(QDBusVariant(property->second.read()))));
}

}  // namespace tilwin::qt
