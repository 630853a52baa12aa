#pragma once

#include "platform/ports/SystemLog.h"
#include "platform/ports/UserDefaults.h"

namespace tilwin::macos {

/// The preferences of this program, where NSUserDefaults keeps them too, with each blob as data under exactly
/// its key: `defaults read BUNDLE-IDENTIFIER KEY` shows it. A value that is no data counts as none.
///
/// When writing fails, the log says so once, and again only after a write in between has worked. Any thread,
/// one at a time. Source: CFPreferences.h.
class MacUserDefaults final : public UserDefaults {
public:
  /// The log must outlive this.
  explicit MacUserDefaults(SystemLog& log) : log_(log) {}

  std::optional<std::string> data(std::string_view key) override;
  void setData(std::string_view key, std::string_view blob) override;
  /// Reads afresh what the other program or the system has stored.
  std::optional<bool> flag(std::string_view domain, std::string_view key) override;

private:
  void noteOutcome(bool written);

  SystemLog& log_;
  bool failing_ = false;
};

}  // namespace tilwin::macos
