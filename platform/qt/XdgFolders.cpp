#include "platform/qt/XdgFolders.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

namespace tilwin::qt {
namespace {

namespace fs = std::filesystem;

std::optional<fs::path> absolute(const char* path) {
  if (path == nullptr || !fs::path(path).is_absolute()) return std::nullopt;
  return path;
}

/// The path in an environment variable. The standard says to ignore one that is not absolute.
std::optional<fs::path> pathIn(const char* variable) { return absolute(std::getenv(variable)); }

/// For the main thread, as the entry is in memory that all calls share.
std::optional<fs::path> homeInPasswd() {
  const passwd* const entry = ::getpwuid(::geteuid());
  return entry == nullptr ? std::nullopt : absolute(entry->pw_dir);
}

std::optional<fs::path> baseFolder(const char* variable, const char* belowHome) {
  if (auto named = pathIn(variable)) return named;
  auto home = pathIn("HOME");
  if (!home) home = homeInPasswd();
  return home ? std::optional(*home / belowHome) : std::nullopt;
}

}  // namespace

std::optional<fs::path> XdgFolders::dataHome() { return baseFolder("XDG_DATA_HOME", ".local/share"); }

std::optional<fs::path> XdgFolders::configHome() { return baseFolder("XDG_CONFIG_HOME", ".config"); }

}  // namespace tilwin::qt
