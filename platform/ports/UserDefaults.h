#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tilwin {

/// Persistent storage for the user's settings of this program: arbitrary bytes by key.
class UserDefaults {
public:
  UserDefaults() = default;
  UserDefaults(const UserDefaults&) = delete;
  UserDefaults& operator=(const UserDefaults&) = delete;
  virtual ~UserDefaults() = default;

  /// The bytes stored under the key; nothing if there are none or they cannot be read.
  [[nodiscard]] virtual std::optional<std::string> data(std::string_view key) = 0;
  /// Stores the bytes before it returns. On failure the old value stays; only the log reports it.
  virtual void setData(std::string_view key, std::string_view blob) = 0;
  /// A preference of another program or of the desktop, by the domain that holds it; nothing if it is not set
  /// or is not a flag.
  [[nodiscard]] virtual std::optional<bool> flag(std::string_view domain, std::string_view key) = 0;
};

}  // namespace tilwin
