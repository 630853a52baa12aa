#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "platform/ports/UserDefaults.h"

namespace tilwin {

/// Settings of a simulated user, on a disk that may be full.
class SimulatedUserDefaults final : public UserDefaults {
public:
  using Blobs = std::map<std::string, std::string, std::less<>>;

  /// What is stored.
  [[nodiscard]] const Blobs& blobs() const { return blobs_; }
  /// Puts a blob there by another hand than the program's.
  void store(std::string_view key, std::string_view blob) { blobs_.insert_or_assign(std::string(key), blob); }
  /// From now on the program's writes fail, or work again.
  void setRefusing(bool refusing) { refusing_ = refusing; }
  /// How often the program has written, refused or not.
  [[nodiscard]] int writeCount() const { return writeCount_; }

private:
  std::optional<std::string> data(std::string_view key) override;
  void setData(std::string_view key, std::string_view blob) override;

  Blobs blobs_;
  bool refusing_ = false;
  int writeCount_ = 0;
};

}  // namespace tilwin
