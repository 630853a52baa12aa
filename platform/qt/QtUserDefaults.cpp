#include "platform/qt/QtUserDefaults.h"

#include <QFileInfo>
#include <QSettings>
#include <QStringList>
#include <QVariant>
#include <filesystem>
#include <system_error>

#include "core/support/AtomicFile.h"
#include "core/support/Folder.h"
#include "platform/qt/XdgFolders.h"

namespace tilwin::qt {

namespace {

/// In bytes. Qt takes seconds to read files many times larger; the files that Tilwin writes are far smaller.
constexpr qint64 largestFile = qint64{4} << 20;

QString text(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

/// The blob as text if possible, so that a user can read and edit it.
QVariant valueOf(std::string_view blob) {
  const QByteArray bytes(blob.data(), static_cast<qsizetype>(blob.size()));
  const QString asText = text(blob);
  const bool isPlain = asText.toUtf8() == bytes && !asText.contains(QChar::Null);
  return isPlain ? QVariant(asText) : QVariant(bytes);
}

/// Qt splits a value written without quotes at its commas. Joined again it may differ from the original text;
/// the caller decides whether it is valid.
std::string blobOf(const QVariant& value) {
  if (value.typeId() == QMetaType::QStringList) return value.toStringList().join(',').toStdString();
  return value.toByteArray().toStdString();
}

bool wasWritten(const QSettings& settings) {
  // A format error found while reading hides any error while writing.
  if (settings.status() == QSettings::FormatError) return settings.isWritable();
  return settings.status() == QSettings::NoError;
}

/// Empty if the user has no folder for it.
QString settingsPath() {
  const auto file = QtUserDefaults::file();
  return file ? text(file->string()) : QString();
}

}  // namespace

QtUserDefaults::QtUserDefaults(SystemLog& log) : log_(log), path_(settingsPath()) {}

std::optional<std::filesystem::path> QtUserDefaults::file() {
  const auto folder = XdgFolders::configHome();
  return folder ? std::optional(*folder / "Tilwin" / "Tilwin.conf") : std::nullopt;
}

std::optional<std::string> QtUserDefaults::data(std::string_view key) {
  if (!mayBeFile() || isTooLarge()) return std::nullopt;
  const QSettings settings(path_, QSettings::IniFormat);
  const QVariant value = settings.value(text(key));
  // Qt reports the error only once; later reads use its cache.
  isUnreadable_ = isUnreadable_ || settings.status() == QSettings::FormatError;
  if (!value.isValid()) return std::nullopt;
  return blobOf(value);
}

void QtUserDefaults::setData(std::string_view key, std::string_view blob) {
  noteOutcome(mayBeFile() && mayBeLocked() && Folder::make(Folder::of(path_.toStdString())) &&
              keepUnreadable() && write(text(key), blob));
}

/// Whether there is a file, or nothing yet. Qt would wait until somebody writes into a named pipe.
bool QtUserDefaults::mayBeFile() const {
  if (path_.isEmpty()) return false;
  const QFileInfo found(path_);
  return found.isFile() || !found.exists();
}

/// Qt locks the file by another one beside it, and waits for whatever else has that name.
bool QtUserDefaults::mayBeLocked() const {
  std::error_code unknown;
  const auto found = std::filesystem::symlink_status(path_.toStdString() + ".lock", unknown);
  return found.type() == std::filesystem::file_type::not_found || std::filesystem::is_regular_file(found);
}

bool QtUserDefaults::isTooLarge() const { return QFileInfo(path_).size() > largestFile; }

/// Keeps the old file under a second name if some of it cannot be read, because Qt drops such lines when it
/// writes. Returns false if that fails, so that a write would lose them.
bool QtUserDefaults::keepUnreadable() {
  const bool isTooLarge = this->isTooLarge();
  if (!isTooLarge) {
    const QSettings settings(path_, QSettings::IniFormat);
    static_cast<void>(settings.allKeys());  // reads all sections
    isUnreadable_ = isUnreadable_ || settings.status() == QSettings::FormatError;
  }
  if (!isTooLarge && !isUnreadable_) return true;
  const std::filesystem::path path = path_.toStdString();
  try {
    AtomicFile::keepCopy(path, "unreadable");
    if (isTooLarge) AtomicFile::replace(path, "");
  } catch (const std::filesystem::filesystem_error&) {
    return false;
  }
  log_.write("Tilwin: not all of " + path.string() + " can be read; it is kept beside it");
  isUnreadable_ = false;
  return true;
}

bool QtUserDefaults::write(const QString& name, std::string_view blob) {
  QSettings settings(path_, QSettings::IniFormat);
  const QVariant before = settings.value(name);
  settings.setValue(name, valueOf(blob));
  settings.sync();
  const bool written = wasWritten(settings);
  // Otherwise Qt keeps the new value in its cache and tries to write it later.
  if (!written && before.isValid()) settings.setValue(name, before);
  if (!written && !before.isValid()) settings.remove(name);
  return written;
}

void QtUserDefaults::noteOutcome(bool written) {
  if (!written && !failing_) {
    log_.write("Tilwin: settings cannot be saved" +
               (path_.isEmpty() ? ": there is no home folder" : " in " + path_.toStdString()));
  }
  failing_ = !written;
}

}  // namespace tilwin::qt
