#include "tests/macos/c/preferences/StoredPreferences.h"

#include <utility>
#include <vector>

#include "core/support/Fatal.h"

namespace tilwin::macos::c {
namespace {

StoredPreferences* preferences = nullptr;

}  // namespace

StoredPreferences::StoredPreferences() {
  if (preferences != nullptr) fatal("The preferences of two tests at once.");
  preferences = this;
}

StoredPreferences::~StoredPreferences() { preferences = nullptr; }

StoredPreferences* StoredPreferences::current() { return preferences; }

void StoredPreferences::store(const std::string& domain, const std::string& key, StoredValue value) {
  disk_[domain].insert_or_assign(key, std::move(value));
}

std::optional<StoredValue> StoredPreferences::stored(const std::string& domain,
                                                     const std::string& key) const {
  const auto values = disk_.find(domain);
  if (values == disk_.end()) return std::nullopt;
  const auto found = values->second.find(key);
  return found == values->second.end() ? std::nullopt : std::optional(found->second);
}

void StoredPreferences::restart() {
  std::vector<std::string> domains;
  for (const auto& [domain, known] : known_) domains.push_back(domain);
  for (const std::string& domain : domains) synchronize(domain);
  known_.clear();
}

std::optional<StoredValue> StoredPreferences::value(const std::string& domain, const std::string& key) {
  const Values& values = known(domain).values;
  const auto found = values.find(key);
  return found == values.end() ? std::nullopt : std::optional(found->second);
}

void StoredPreferences::set(const std::string& domain, const std::string& key,
                            std::optional<StoredValue> value) {
  Known& changed = known(domain);
  changed.changed.insert(key);
  changed.values.erase(key);
  if (value) changed.values.emplace(key, *std::move(value));
}

bool StoredPreferences::synchronize(const std::string& domain) {
  Known& mine = known(domain);
  if (!mine.changed.empty() && isDiskFull_) return false;
  for (const std::string& key : std::exchange(mine.changed, {})) {
    disk_[domain].erase(key);
    if (const auto value = mine.values.find(key); value != mine.values.end()) disk_[domain].insert(*value);
  }
  mine.values = disk_[domain];
  return true;
}

StoredPreferences::Known& StoredPreferences::known(const std::string& domain) {
  const auto found = known_.find(domain);
  return found != known_.end() ? found->second : known_[domain] = {disk_[domain], {}};
}

}  // namespace tilwin::macos::c
