#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "platform/ports/LoginService.h"
#include "platform/ports/UpdateFramework.h"

namespace tilwin::contract {

/// A user's list of programs that start at login, and the adapter under test.
class LoginWorld {
public:
  LoginWorld() = default;
  LoginWorld(const LoginWorld&) = delete;
  LoginWorld& operator=(const LoginWorld&) = delete;
  virtual ~LoginWorld() = default;

  virtual LoginService& service() = 0;
  /// From now on nothing can be changed.
  virtual void refuse() = 0;
};

using LoginWorldMaker = std::unique_ptr<LoginWorld> (*)();

/// Each test starts with a program that is not registered.
class LoginServiceContract : public testing::TestWithParam<LoginWorldMaker> {
protected:
  std::unique_ptr<LoginWorld> world = GetParam()();
};

/// A feed, and the adapter under test.
class UpdateWorld {
public:
  UpdateWorld() = default;
  UpdateWorld(const UpdateWorld&) = delete;
  UpdateWorld& operator=(const UpdateWorld&) = delete;
  virtual ~UpdateWorld() = default;

  virtual UpdateFramework& framework() = 0;
  [[nodiscard]] virtual std::string feed() const = 0;
  /// Waits until a started framework lets a check start; false if that takes too long.
  virtual bool waitUntilReady() = 0;
  /// Checks that have reached the feed.
  [[nodiscard]] virtual int checks() = 0;
};

using UpdateWorldMaker = std::unique_ptr<UpdateWorld> (*)();

class UpdateContract : public testing::TestWithParam<UpdateWorldMaker> {
protected:
  std::unique_ptr<UpdateWorld> world = GetParam()();
};

}  // namespace tilwin::contract
