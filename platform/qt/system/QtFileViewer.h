#pragma once

#include <QObject>
#include <QString>
#include <memory>

#include "platform/ports/FileViewer.h"
#include "platform/ports/SystemLog.h"
#include "platform/qt/bus/SessionBusConnection.h"

namespace tilwin::qt {

/// Opens addresses through xdg-open, else gio, and shows files in the file manager that offers to select
/// them, else opens their folder. A program that starts and then fails is not noticed. A session bus that
/// does not answer is waited for, half a second. Source: File Manager DBus Interface
/// (org.freedesktop.FileManager1).
class QtFileViewer final : public FileViewer {
public:
  /// The log must outlive this.
  explicit QtFileViewer(SystemLog& log) : log_(log) {}

  void openURL(const std::string& address) override;
  /// Shows the nearest folder above that exists if the file does not.
  void reveal(const std::filesystem::path& file) override;

private:
  void open(const QString& address);
  void select(const QString& file);

  SystemLog& log_;
  /// Opened when it is first needed, and again after it was lost.
  std::unique_ptr<SessionBusConnection> bus_;
  QObject context_;
};

}  // namespace tilwin::qt
