#pragma once

#include <optional>
#include <string>
#include <unordered_map>

namespace tilwin::x11 {

/// The localised names of applications by the id of their desktop entry. Each is looked up once and cached,
/// but no more of them than applications can be in use at a time: ids and names come from other programs.
/// Source: XDG Desktop Entry Specification; entries are in `applications` under XDG_DATA_HOME and
/// XDG_DATA_DIRS.
class DesktopEntries {
public:
  /// The entry's Name in the user's language; `otherwise` if the entry does not exist or has no name.
  [[nodiscard]] std::string nameOf(const std::string& id, const std::string& otherwise);

private:
  /// Nothing for an id without an entry.
  std::unordered_map<std::string, std::optional<std::string>> names_;
};

}  // namespace tilwin::x11
