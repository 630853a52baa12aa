#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include "platform/ports/Bundle.h"
#include "platform/ports/UserDefaults.h"

namespace tilwin::contract {

inline constexpr const char* key = "tilwin.settings.v1";

/// The storage of a user's settings, and the adapter under test.
class UserDefaultsWorld {
public:
  UserDefaultsWorld() = default;
  UserDefaultsWorld(const UserDefaultsWorld&) = delete;
  UserDefaultsWorld& operator=(const UserDefaultsWorld&) = delete;
  virtual ~UserDefaultsWorld() = default;

  virtual UserDefaults& defaults() = 0;
  /// The program ends and starts again.
  virtual void restart() = 0;
  /// Makes the disk full, or not full any more.
  virtual void setDiskFull(bool full) = 0;
};

using UserDefaultsWorldMaker = std::unique_ptr<UserDefaultsWorld> (*)();

/// Each test starts with nothing stored.
class UserDefaultsContract : public testing::TestWithParam<UserDefaultsWorldMaker> {
protected:
  std::unique_ptr<UserDefaultsWorld> world = GetParam()();
};

/// A user whose Application Support folder does not exist yet, and the adapter under test.
class BundleWorld {
public:
  BundleWorld() = default;
  BundleWorld(const BundleWorld&) = delete;
  BundleWorld& operator=(const BundleWorld&) = delete;
  virtual ~BundleWorld() = default;

  virtual Bundle& bundle() = 0;
  [[nodiscard]] virtual std::filesystem::path folder() const = 0;
};

using BundleWorldMaker = std::unique_ptr<BundleWorld> (*)();

class BundleContract : public testing::TestWithParam<BundleWorldMaker> {
protected:
  std::unique_ptr<BundleWorld> world = GetParam()();
};

}  // namespace tilwin::contract
