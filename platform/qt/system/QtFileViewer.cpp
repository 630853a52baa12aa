#include "platform/qt/system/QtFileViewer.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStringList>
#include <QUrl>
#include <algorithm>
#include <array>
#include <chrono>
#include <system_error>

#include "platform/qt/StopSignals.h"

namespace tilwin::qt {
namespace {

struct Opener {
  const char* program;
  const char* command;  ///< before the address; may be null
};

constexpr std::array openers = std::to_array<Opener>({{"xdg-open", nullptr}, {"gio", "open"}});

constexpr std::chrono::milliseconds busPatience{500};
/// In milliseconds. A file manager may have to start first.
constexpr int managerPatience = 10'000;

bool startsOpener(const Opener& opener, const QString& address) {
  QStringList arguments{address};
  if (opener.command != nullptr) arguments.prepend(QLatin1String(opener.command));
  QProcess process;
  process.setProgram(QLatin1String(opener.program));
  process.setArguments(arguments);
  process.setChildProcessModifier(StopSignals::unblock);
  return process.startDetached();
}

std::filesystem::path nearestThatExists(std::filesystem::path file) {
  std::error_code refusal;
  while (!std::filesystem::exists(file, refusal) && file.has_relative_path()) file = file.parent_path();
  return file;
}

}  // namespace

void QtFileViewer::openURL(const std::string& address) {
  const QUrl url(QString::fromStdString(address), QUrl::StrictMode);
  // Without a scheme it could be taken for an option.
  if (!url.isValid() || url.scheme().isEmpty()) return log_.write("Tilwin: not an address: " + address);
  open(QString::fromUtf8(url.toEncoded()));
}

void QtFileViewer::open(const QString& address) {
  const bool isOpening = std::any_of(openers.begin(), openers.end(),
                                     [&](const Opener& opener) { return startsOpener(opener, address); });
  if (!isOpening) log_.write("Tilwin: there is no program to open " + address.toStdString());
}

void QtFileViewer::reveal(const std::filesystem::path& file) {
  const auto shown = nearestThatExists(file);
  const QString path = QFile::decodeName(shown.native().c_str());
  const bool isFile = shown == file && !QFileInfo(path).isDir();
  isFile ? select(path) : open(QString::fromUtf8(QUrl::fromLocalFile(path).toEncoded()));
}

void QtFileViewer::select(const QString& file) {
  const QString folder = QString::fromUtf8(QUrl::fromLocalFile(QFileInfo(file).path()).toEncoded());
  if (!bus_ || !bus_->isConnected()) bus_ = std::make_unique<SessionBusConnection>(busPatience);
  if (!bus_->isConnected()) return open(folder);
  auto request = QDBusMessage::createMethodCall(
      QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("/org/freedesktop/FileManager1"),
      QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
  request << QStringList{QString::fromUtf8(QUrl::fromLocalFile(file).toEncoded())} << QString();
  auto* const call =
      new QDBusPendingCallWatcher(bus_->connection().asyncCall(request, managerPatience), &context_);
  QObject::connect(call, &QDBusPendingCallWatcher::finished, &context_, [this, call, folder] {
    call->deleteLater();
    if (call->isError()) open(folder);
  });
}

}  // namespace tilwin::qt
