#include "platform/qt/settings/ColourScheme.h"

#include <QApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QDeadlineTimer>
#include <QFile>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QThread>

#include "core/support/AtomicFile.h"

namespace tilwin::qt {
namespace {

constexpr int portalTimeout = 3000;  // ms; the bus may have to start the portal
constexpr int longestWait = 40;      // ms, of the window being opened
constexpr std::size_t longestGtkSettings = 65536;

/// A program on a bus can be asked; without a bus, Qt would start one.
bool hasSessionBus() {
  return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") ||
         QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + QStringLiteral("/bus"));
}

QDBusMessage colourSchemeRequest() {
  auto request = QDBusMessage::createMethodCall(
      QStringLiteral("org.freedesktop.portal.Desktop"), QStringLiteral("/org/freedesktop/portal/desktop"),
      QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("Read"));
  request << QStringLiteral("org.freedesktop.appearance") << QStringLiteral("color-scheme");
  return request;
}

ColourScheme::Wish wishIn(const QDBusMessage& reply) {
  if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty())
    return ColourScheme::Wish::none;
  QVariant value = reply.arguments().constFirst();
  // The value is a variant within a variant.
  while (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
  bool isNumber = false;
  const uint number = value.toUInt(&isNumber);
  if (!isNumber || number > 2) return ColourScheme::Wish::none;
  return number == 1   ? ColourScheme::Wish::dark
         : number == 2 ? ColourScheme::Wish::light
                       : ColourScheme::Wish::none;
}

/// Fusion's palette when no theme of a desktop gives one.
bool isStock(const QPalette& palette) { return palette.color(QPalette::Window) == QColor(0xef, 0xef, 0xef); }

}  // namespace

ColourScheme::ColourScheme() = default;
ColourScheme::~ColourScheme() {
  if (desktop_ && QCoreApplication::instance() != nullptr) QApplication::setPalette(*desktop_);
}

bool ColourScheme::isDark(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

ColourScheme::Wish ColourScheme::inGtkSettings(const QString& text) {
  static const QRegularExpression prefersDark(
      QStringLiteral("^\\s*gtk-application-prefer-dark-theme\\s*=\\s*(1|true|yes)\\s*$"),
      QRegularExpression::MultilineOption | QRegularExpression::CaseInsensitiveOption);
  static const QRegularExpression darkTheme(
      QStringLiteral("^\\s*gtk-theme-name\\s*=\\s*\"?[^\\n\"]*-dark\"?\\s*$"),
      QRegularExpression::MultilineOption | QRegularExpression::CaseInsensitiveOption);
  return text.contains(prefersDark) || text.contains(darkTheme) ? Wish::dark : Wish::none;
}

ColourScheme::Wish ColourScheme::ofGtk() {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
  const auto text =
      AtomicFile::read((folder + QStringLiteral("/gtk-3.0/settings.ini")).toStdString(), longestGtkSettings);
  return text ? inGtkSettings(QString::fromStdString(*text)) : Wish::none;
}

void ColourScheme::ask() {
  if (!desktop_) desktop_ = QApplication::palette();
  call_.reset();
  if (isDark(*desktop_) || !hasSessionBus()) return;
  const auto bus = QDBusConnection::sessionBus();
  if (bus.isConnected()) {
    call_ = std::make_unique<QDBusPendingCall>(bus.asyncCall(colourSchemeRequest(), portalTimeout));
  }
}

void ColourScheme::apply() {
  if (!call_) return applyWish(Wish::none);
  const QDeadlineTimer deadline(longestWait);
  while (!call_->isFinished() && !deadline.hasExpired()) QThread::msleep(1);
  applyAnswer(*call_);
  if (call_->isFinished()) return;
  auto* watcher = new QDBusPendingCallWatcher(*call_, &context_);
  QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &context_,
                   [this](QDBusPendingCallWatcher* finished) {
                     applyAnswer(*finished);
                     finished->deleteLater();
                   });
}

void ColourScheme::applyAnswer(const QDBusPendingCall& call) {
  applyWish(call.isFinished() ? wishIn(call.reply()) : Wish::none);
}

void ColourScheme::applyWish(Wish wish) {
  if (isDark(*desktop_)) return;
  if (wish == Wish::none) wish = ofGtk();
  const QPalette light = isStock(*desktop_) ? lightPalette() : *desktop_;
  const QPalette wanted = wish == Wish::dark ? darkPalette() : light;
  if (QApplication::palette() != wanted) QApplication::setPalette(wanted);
}

}  // namespace tilwin::qt
