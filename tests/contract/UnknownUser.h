#pragma once

#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

namespace tilwin {

/// As long as it lives, the process belongs to a user whom the system does not know; if root runs it.
class UnknownUser {
public:
  UnknownUser() : isOne_(::geteuid() == 0 && ::getpwuid(number) == nullptr && ::seteuid(number) == 0) {}
  UnknownUser(const UnknownUser&) = delete;
  UnknownUser& operator=(const UnknownUser&) = delete;
  ~UnknownUser() {
    if (isOne_) {
      EXPECT_EQ(::seteuid(0), 0);
    }
  }

  [[nodiscard]] bool isOne() const { return isOne_; }

private:
  static constexpr uid_t number = 54321;
  bool isOne_;
};

}  // namespace tilwin
