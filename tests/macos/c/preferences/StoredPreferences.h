#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <variant>

namespace tilwin::macos::c {

struct StoredBytes {
  std::string bytes;

  bool operator==(const StoredBytes&) const = default;
};

/// Data, text, a Boolean or a number.
using StoredValue = std::variant<StoredBytes, std::string, bool, double>;

/// The preferences of a user on a disk, and what this process knows of them, as long as this exists. A
/// process sees what it has set at once, and what others store only when it synchronizes. One at a time.
class StoredPreferences {
public:
  static constexpr const char* ownDomain = "org.example.Tilwin";

  StoredPreferences();
  StoredPreferences(const StoredPreferences&) = delete;
  StoredPreferences& operator=(const StoredPreferences&) = delete;
  ~StoredPreferences();

  /// The one that exists; null if none does.
  static StoredPreferences* current();

  /// Another process stores a value.
  void store(const std::string& domain, const std::string& key, StoredValue value);
  /// What is on the disk.
  [[nodiscard]] std::optional<StoredValue> stored(const std::string& domain, const std::string& key) const;
  void setDiskFull(bool full) { isDiskFull_ = full; }
  /// This process ends, and what it has set is stored if it can be; then it starts again.
  void restart();

  /// What follows is for the functions of Core Foundation.
  [[nodiscard]] std::optional<StoredValue> value(const std::string& domain, const std::string& key);
  void set(const std::string& domain, const std::string& key, std::optional<StoredValue> value);
  bool synchronize(const std::string& domain);

private:
  using Values = std::map<std::string, StoredValue>;
  struct Known {
    Values values;
    std::set<std::string> changed;  ///< keys
  };

  Known& known(const std::string& domain);

  std::map<std::string, Values> disk_;
  std::map<std::string, Known> known_;
  bool isDiskFull_ = false;
};

}  // namespace tilwin::macos::c
