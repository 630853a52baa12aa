#pragma once

#include <QString>
#include <filesystem>
#include <optional>

#include "platform/ports/SystemLog.h"
#include "platform/ports/UserDefaults.h"

namespace tilwin::qt {

/// Stores the user's settings in the INI file "Tilwin/Tilwin.conf" in `XdgFolders::configHome`, section
/// [General]; nothing is stored for a user without that. The folder is made as by `Folder::make`.
/// UTF-8 text is written as a quoted string, which a user can also write by hand; any other bytes as Qt's
/// @ByteArray(...). The file is replaced as a whole, never half written. A file that cannot be read
/// completely is kept as "Tilwin.conf.unreadable" before the first write. Source: XDG Base Directory
/// Specification. What is no file, such as a folder or a named pipe, is neither read nor replaced, and in the
/// place of Qt's lock "Tilwin.conf.lock" it keeps the settings from being written.
class QtUserDefaults : public UserDefaults {
public:
  /// The log must outlive this.
  explicit QtUserDefaults(SystemLog& log);

  [[nodiscard]] std::optional<std::string> data(std::string_view key) override;
  void setData(std::string_view key, std::string_view blob) override;
  /// Nothing: programs on Linux have no preferences in common.
  [[nodiscard]] std::optional<bool> flag(std::string_view, std::string_view) override { return std::nullopt; }
  /// The file, which need not exist; nothing if there is no place for it.
  [[nodiscard]] static std::optional<std::filesystem::path> file();

private:
  [[nodiscard]] bool mayBeFile() const;
  [[nodiscard]] bool mayBeLocked() const;
  [[nodiscard]] bool isTooLarge() const;
  bool keepUnreadable();
  bool write(const QString& name, std::string_view blob);
  void noteOutcome(bool written);

  SystemLog& log_;
  QString path_;               ///< empty if there is no place for the file
  bool isUnreadable_ = false;  ///< some line of the file could not be read
  bool failing_ = false;       ///< the last write failed
};

}  // namespace tilwin::qt
