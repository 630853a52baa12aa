#pragma once

#include <filesystem>

namespace tilwin::macos {

/// GNUstep keeps the user's files in the home folder that the system has for the user, whatever the
/// environment says. From now on they are in this folder; it is not created.
void setUserFolder(const std::filesystem::path& folder);

/// Application Support in that folder.
[[nodiscard]] std::filesystem::path applicationSupportFolder(const std::filesystem::path& userFolder);

}  // namespace tilwin::macos
