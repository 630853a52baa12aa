#include "platform/qt/XdgBundle.h"

#include "core/support/Folder.h"
#include "platform/qt/XdgFolders.h"

namespace tilwin::qt {

std::optional<std::filesystem::path> XdgBundle::applicationSupport() {
  const auto folder = XdgFolders::dataHome();
  if (!folder) return std::nullopt;
  return Folder::make(*folder) ? folder : std::nullopt;
}

}  // namespace tilwin::qt
