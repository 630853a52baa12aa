#pragma once

#include <cstdlib>
#include <optional>
#include <string>
#include <utility>

namespace tilwin {

/// Sets or unsets an environment variable; the destructor restores its value.
class EnvironmentVariable {
public:
  EnvironmentVariable(std::string name, const char* value) : name_(std::move(name)) {
    if (const char* const before = std::getenv(name_.c_str())) before_ = before;
    set(value);
  }
  EnvironmentVariable(const EnvironmentVariable&) = delete;
  EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;
  ~EnvironmentVariable() { set(before_ ? before_->c_str() : nullptr); }

private:
  void set(const char* value) const {
    if (value == nullptr) {
      ::unsetenv(name_.c_str());
    } else {
      ::setenv(name_.c_str(), value, 1);
    }
  }

  std::string name_;
  std::optional<std::string> before_;
};

}  // namespace tilwin
