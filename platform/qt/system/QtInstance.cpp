#include "platform/qt/system/QtInstance.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QDeadlineTimer>
#include <QMetaObject>
#include <QString>
#include <algorithm>
#include <utility>

#include "core/commands/CommandWire.h"
#include "platform/qt/bus/OwnerGone.h"
#include "platform/qt/bus/SessionBusConnection.h"

namespace tilwin::qt {
namespace {

constexpr auto instancePath = "/org/tilwin/Tilwin";
constexpr auto instanceInterface = "org.tilwin.Tilwin";
constexpr auto showSettingsCall = "ShowSettings";

/// Flag of RequestName: fail instead of waiting in line.
constexpr uint doNotQueueName = 4;
/// Answers of RequestName.
constexpr uint primaryNameOwner = 1;
constexpr uint alreadyNameOwner = 4;

}  // namespace

/// The connection, and the object on it that later instances call.
class QtInstance::Claim : public QDBusVirtualObject {
public:
  enum class Answer { granted, handedOver, ownerHasGone };

  explicit Claim(std::chrono::milliseconds patience) : deadline_(patience), bus_(patience) {}
  Claim(const Claim&) = delete;
  Claim& operator=(const Claim&) = delete;
  ~Claim() override { bus_.connection().unregisterObject(QLatin1String(instancePath)); }

  [[nodiscard]] bool isConnected() const { return bus_.isConnected(); }
  [[nodiscard]] QDBusConnection bus() const { return bus_.connection(); }

  Answer ask(const std::string& service) {
    auto bus = bus_.connection();
    // Before the name, so that nobody who finds the name misses the object.
    bus.registerVirtualObject(QLatin1String(instancePath), this);
    const QString name = QString::fromStdString(service);
    const auto granted =
        call(QDBusMessage::createMethodCall(
                 QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/org/freedesktop/DBus"),
                 QStringLiteral("org.freedesktop.DBus"), QStringLiteral("RequestName"))
             << name << doNotQueueName);
    if (granted.type() != QDBusMessage::ReplyMessage || granted.arguments().isEmpty()) return Answer::granted;
    const uint answer = granted.arguments().constFirst().toUInt();
    if (answer == primaryNameOwner || answer == alreadyNameOwner) return Answer::granted;
    auto request = QDBusMessage::createMethodCall(
        name, QLatin1String(instancePath), QLatin1String(instanceInterface), QLatin1String(showSettingsCall));
    request.setAutoStartService(false);
    if (!hasOwnerGone(call(request))) return Answer::handedOver;
    // Two programs are a lesser harm than none.
    return deadline_.hasExpired() ? Answer::granted : Answer::ownerHasGone;
  }

  void setHandler(std::function<void()> handler) {
    handler_ = std::move(handler);
    if (wasAsked_) postRequest();
  }

private:
  QDBusMessage call(const QDBusMessage& message) {
    const auto left = std::max<qint64>(1, deadline_.remainingTime());
    return bus_.connection().call(message, QDBus::Block, static_cast<int>(left));
  }

  void postRequest() {
    wasAsked_ = handler_ == nullptr;
    if (!handler_) return;
    QMetaObject::invokeMethod(
        this,
        [this] {
          if (const auto handler = handler_) handler();
        },
        Qt::QueuedConnection);
  }

  [[nodiscard]] QString introspect(const QString&) const override {
    return QStringLiteral("<interface name=\"%1\"><method name=\"%2\"/></interface>")
        .arg(QLatin1String(instanceInterface), QLatin1String(showSettingsCall));
  }

  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
    if (message.member() != QLatin1String(showSettingsCall)) return false;
    postRequest();
    connection.send(message.createReply());
    return true;
  }

  QDeadlineTimer deadline_;
  SessionBusConnection bus_;
  std::function<void()> handler_;
  bool wasAsked_ = false;
};

QtInstance::QtInstance(std::string_view display, std::chrono::milliseconds patience)
    : service_(serviceName(display)), patience_(patience) {}

QtInstance::~QtInstance() = default;

bool QtInstance::claim() {
  claim_ = std::make_unique<Claim>(patience_);
  if (!claim_->isConnected()) return true;
  auto answer = Claim::Answer::ownerHasGone;
  while (answer == Claim::Answer::ownerHasGone) answer = claim_->ask(service_);
  const bool isGranted = answer == Claim::Answer::granted;
  if (!isGranted) claim_.reset();
  return isGranted;
}

void QtInstance::onShowSettings(std::function<void()> handler) {
  if (claim_) claim_->setHandler(std::move(handler));
}

QDBusConnection QtInstance::bus() const { return claim_ ? claim_->bus() : QDBusConnection(QString()); }

std::string QtInstance::serviceName(std::string_view display) {
  return "org.tilwin.Tilwin." + CommandWire::displayWord(display);
}

}  // namespace tilwin::qt
