#pragma once

#include <string>
#include <unordered_map>

namespace tilwin::x11 {

/// The localised names of applications by the id of their desktop entry. Each is looked up once and cached.
/// Source: XDG Desktop Entry Specification; entries are in `applications` under XDG_DATA_HOME and
/// XDG_DATA_DIRS.
class DesktopEntries {
public:
  /// The entry's Name in the user's language; `otherwise` if the entry does not exist or has no name. The
  /// reference is valid as long as this object.
  [[nodiscard]] const std::string& nameOf(const std::string& id, const std::string& otherwise);

private:
  std::unordered_map<std::string, std::string> names_;
};

}  // namespace tilwin::x11
