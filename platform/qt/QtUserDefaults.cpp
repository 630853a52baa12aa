#include "platform/qt/QtUserDefaults.h"

#include <QFile>
#include <QSettings>
#include <QStandardPaths>
#include <QStringList>
#include <QVariant>

namespace tilwin::qt {

namespace {

QString text(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

/// Text where it can be, so that a person can read and write it.
QVariant valueOf(std::string_view blob) {
  const QByteArray bytes(blob.data(), static_cast<qsizetype>(blob.size()));
  const QString asText = text(blob);
  const bool isPlain = asText.toUtf8() == bytes && !asText.contains(QChar::Null);
  return isPlain ? QVariant(asText) : QVariant(bytes);
}

/// A value that was written without quotes has lost some at its commas; it is handed on to be judged.
std::string blobOf(const QVariant& value) {
  if (value.typeId() == QMetaType::QStringList) return value.toStringList().join(',').toStdString();
  return value.toByteArray().toStdString();
}

bool wasWritten(const QSettings& settings) {
  // A fault found in reading hides one in writing.
  if (settings.status() == QSettings::FormatError) return settings.isWritable();
  return settings.status() == QSettings::NoError;
}

}  // namespace

QtUserDefaults::QtUserDefaults(SystemLog& log)
    : log_(log),
      path_(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
            QStringLiteral("/Tilwin/Tilwin.conf")) {}

std::optional<std::string> QtUserDefaults::data(std::string_view key) {
  const QSettings settings(path_, QSettings::IniFormat);
  const QVariant value = settings.value(text(key));
  if (!value.isValid()) return std::nullopt;
  return blobOf(value);
}

void QtUserDefaults::setData(std::string_view key, std::string_view blob) {
  QSettings settings(path_, QSettings::IniFormat);
  const QString name = text(key);
  const QVariant before = settings.value(name);
  if (settings.status() == QSettings::FormatError) keepBroken();
  settings.setValue(name, valueOf(blob));
  settings.sync();
  const bool written = wasWritten(settings);
  // Qt would hand out the value and try again later.
  if (!written && before.isValid()) settings.setValue(name, before);
  if (!written && !before.isValid()) settings.remove(name);
  noteOutcome(written);
}

/// Qt drops the lines it cannot read when it writes.
void QtUserDefaults::keepBroken() const {
  const QString copy = path_ + QStringLiteral(".broken");
  if (!QFile::copy(path_, copy)) return;
  log_.write("Tilwin: some lines of " + path_.toStdString() + " cannot be read; the file is kept as " +
             copy.toStdString());
}

void QtUserDefaults::noteOutcome(bool written) {
  if (!written && !failing_) log_.write("Tilwin: settings cannot be saved in " + path_.toStdString());
  failing_ = !written;
}

}  // namespace tilwin::qt
