#include "platform/qt/XdgFolders.h"

#include <cstdlib>

namespace tilwin::qt {
namespace {

namespace fs = std::filesystem;

/// The path in an environment variable. The standard says to ignore one that is not absolute.
std::optional<fs::path> pathIn(const char* variable) {
  const char* const value = std::getenv(variable);
  if (value == nullptr || !fs::path(value).is_absolute()) return std::nullopt;
  return value;
}

std::optional<fs::path> baseFolder(const char* variable, const char* belowHome) {
  if (auto named = pathIn(variable)) return named;
  const auto home = pathIn("HOME");
  return home ? std::optional(*home / belowHome) : std::nullopt;
}

}  // namespace

std::optional<fs::path> XdgFolders::dataHome() { return baseFolder("XDG_DATA_HOME", ".local/share"); }

std::optional<fs::path> XdgFolders::configHome() { return baseFolder("XDG_CONFIG_HOME", ".config"); }

}  // namespace tilwin::qt
