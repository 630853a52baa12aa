#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tilwin {

/// The user's own settings of this program, as blobs of any bytes by key. They outlive the process.
class UserDefaults {
public:
  UserDefaults() = default;
  UserDefaults(const UserDefaults&) = delete;
  UserDefaults& operator=(const UserDefaults&) = delete;
  virtual ~UserDefaults() = default;

  /// What is stored under the key; nothing when nothing is, or when it cannot be read.
  [[nodiscard]] virtual std::optional<std::string> data(std::string_view key) = 0;
  /// Stored when the call returns. A failure is quiet but for a line in the log, and leaves what was stored
  /// before.
  virtual void setData(std::string_view key, std::string_view blob) = 0;
};

}  // namespace tilwin
