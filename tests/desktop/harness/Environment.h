#pragma once

#include <map>
#include <string>
#include <vector>

namespace tilwin::desktop {

/// The environment variables of a program to start; nothing is inherited besides.
class Environment {
public:
  void set(const std::string& name, const std::string& value) { values_[name] = value; }
  void unset(const std::string& name) { values_.erase(name); }

  /// The value, or empty text when the variable is not set.
  std::string get(const std::string& name) const;

  /// This environment with the other's variables added, the other's winning.
  Environment with(const Environment& other) const;

  /// The variables as "NAME=value", in the form execve takes.
  std::vector<std::string> strings() const;

  bool operator==(const Environment&) const = default;

private:
  std::map<std::string, std::string> values_;
};

}  // namespace tilwin::desktop
