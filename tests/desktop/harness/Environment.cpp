#include "tests/desktop/harness/Environment.h"

namespace tilwin::desktop {

std::string Environment::get(const std::string& name) const {
  const auto found = values_.find(name);
  return found == values_.end() ? std::string() : found->second;
}

Environment Environment::with(const Environment& other) const {
  Environment both = *this;
  for (const auto& [name, value] : other.values_) both.values_[name] = value;
  return both;
}

std::vector<std::string> Environment::strings() const {
  std::vector<std::string> result;
  result.reserve(values_.size());
  for (const auto& [name, value] : values_) result.emplace_back(name).append("=").append(value);
  return result;
}

}  // namespace tilwin::desktop
