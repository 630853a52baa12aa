#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QString>
#include <QVariant>
#include <QVariantList>
#include <functional>
#include <map>
#include <variant>

namespace tilwin::qt {

/// Why a method call could not be answered. Source: D-Bus specification, "Error names".
struct BusError {
  QString name{};
  QString message{};
};

/// An object with one interface that this program offers on the session bus, made of tables of methods,
/// properties and signals. Source: D-Bus specification, standard interfaces Properties and Introspectable.
class BusObject : public QDBusVirtualObject {
public:
  using Answer = std::variant<QVariantList, BusError>;
  using Method = std::function<Answer(const QVariantList& arguments)>;
  using Property = std::function<QVariant()>;

  BusObject(QString path, QString interface);

  [[nodiscard]] const QString& path() const { return path_; }
  /// Makes the object callable on this connection. It must be destroyed before the connection is closed.
  void offer(const QDBusConnection& bus);

  [[nodiscard]] QString introspect(const QString& path) const override;
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

protected:
  /// `signature` are the types of the arguments; a call with others is refused. `returns` are those of the
  /// results. An empty list of results answers with nothing.
  void addMethod(const QString& name, const QString& signature, const QString& returns, Method method);
  void addProperty(const QString& name, const QString& signature, Property property);
  /// Only for those who ask what the interface is.
  void addSignal(const QString& name, const QString& signature) { signals_[name] = signature; }
  /// Sends the standard signal for those properties whose values differ from the last ones sent by this.
  void announceChangedProperties();
  /// Sends a signal if the object is on the bus.
  void announce(const QString& signal, const QVariantList& arguments) const;

private:
  struct MethodRow {
    QString signature{};
    QString returns{};
    Method call{};
  };
  struct PropertyRow {
    QString signature{};
    Property read{};
    QVariant announced{};
  };

  bool answerProperties(const QDBusMessage& message, const QDBusConnection& connection) const;

  QString path_;
  QString interface_;
  QDBusConnection bus_{QString()};
  std::map<QString, MethodRow> methods_;
  std::map<QString, PropertyRow> properties_;
  std::map<QString, QString> signals_;
};

}  // namespace tilwin::qt
