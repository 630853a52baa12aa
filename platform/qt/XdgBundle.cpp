#include "platform/qt/XdgBundle.h"

#include <system_error>

#include "platform/qt/XdgFolders.h"

namespace tilwin::qt {

std::optional<std::filesystem::path> XdgBundle::applicationSupport() {
  namespace fs = std::filesystem;
  const auto folder = XdgFolders::dataHome();
  if (!folder) return std::nullopt;
  std::error_code refusal;
  // The XDG standard says that a new folder is accessible to the user only.
  if (fs::create_directories(*folder, refusal)) fs::permissions(*folder, fs::perms::owner_all, refusal);
  return fs::is_directory(*folder, refusal) ? folder : std::nullopt;
}

}  // namespace tilwin::qt
