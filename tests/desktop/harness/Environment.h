#pragma once

#include <map>
#include <ostream>
#include <string>
#include <vector>

namespace tilwin::desktop {

/// The environment variables of a program to start; nothing else is inherited.
class Environment {
public:
  void set(const std::string& name, const std::string& value) { values_[name] = value; }
  void unset(const std::string& name) { values_.erase(name); }

  /// The value; empty if the variable is not set.
  std::string get(const std::string& name) const {
    const auto found = values_.find(name);
    return found == values_.end() ? std::string() : found->second;
  }

  /// Both environments together; where both have a variable, the other's value wins.
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

  friend std::ostream& operator<<(std::ostream& out, const Environment& environment) {
    for (const std::string& variable : environment.strings()) out << variable << '\n';
    return out;
  }

private:
  std::map<std::string, std::string> values_;
};

}  // namespace tilwin::desktop
