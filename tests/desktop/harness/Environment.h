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
  std::string get(const std::string& name) const {
    const auto found = values_.find(name);
    return found == values_.end() ? std::string() : found->second;
  }

  /// This environment with the other's variables added, the other's winning.
  Environment with(const Environment& other) const {
    Environment both = *this;
    for (const auto& [name, value] : other.values_) both.values_[name] = value;
    return both;
  }

  /// The variables as "NAME=value", in the form execve takes.
  std::vector<std::string> strings() const {
    std::vector<std::string> result;
    result.reserve(values_.size());
    for (const auto& [name, value] : values_) result.emplace_back(name).append("=").append(value);
    return result;
  }

  bool operator==(const Environment&) const = default;

private:
  std::map<std::string, std::string> values_;
};

}  // namespace tilwin::desktop
