#pragma once

#include <QString>

#include "platform/ports/SystemLog.h"
#include "platform/ports/UserDefaults.h"

namespace tilwin::qt {

/// Keeps blobs as values of the INI file "Tilwin/Tilwin.conf" in $XDG_CONFIG_HOME (XDG Base Directory
/// Specification), section [General]. A blob of UTF-8 text stands there as a quoted string, as a person may
/// also write it; any other as Qt's @ByteArray(...). The file is replaced as a whole, never half written.
/// What of it cannot be read is kept beside it, as "Tilwin.conf.unreadable", before the first write over it.
class QtUserDefaults : public UserDefaults {
public:
  /// The log must outlive this.
  explicit QtUserDefaults(SystemLog& log);

  [[nodiscard]] std::optional<std::string> data(std::string_view key) override;
  void setData(std::string_view key, std::string_view blob) override;

private:
  [[nodiscard]] bool isTooLarge() const;
  bool keepUnreadable();
  bool write(const QString& name, std::string_view blob);
  void noteOutcome(bool written);

  SystemLog& log_;
  QString path_;
  bool isUnreadable_ = false;  ///< some of the file, as far as it has been read
  bool failing_ = false;
};

}  // namespace tilwin::qt
