#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QString>
#include <QVariant>
#include <QVariantList>
#include <functional>
#include <map>

namespace tilwin::qt {

/// An object with one interface that this program offers on the session bus, made of tables of methods and
/// properties. Source: D-Bus specification, standard interfaces Properties and Introspectable.
class BusObject : public QDBusVirtualObject {
public:
  using Method = std::function<QVariantList(const QVariantList& arguments)>;
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
  };

  bool answerProperties(const QDBusMessage& message, const QDBusConnection& connection) const;

  QString path_;
  QString interface_;
  QDBusConnection bus_{QString()};
  std::map<QString, MethodRow> methods_;
  std::map<QString, PropertyRow> properties_;
};

}  // namespace tilwin::qt
