#include "platform/qt/XdgBundle.h"

#include <cstdlib>
#include <system_error>

namespace tilwin::qt {
namespace {

namespace fs = std::filesystem;

/// The path in an environment variable. The XDG standard says to ignore one that is not absolute.
std::optional<fs::path> pathIn(const char* variable) {
  const char* const value = std::getenv(variable);
  if (value == nullptr || !fs::path(value).is_absolute()) return std::nullopt;
  return value;
}

std::optional<fs::path> dataHome() {
  if (auto named = pathIn("XDG_DATA_HOME")) return named;
  const auto home = pathIn("HOME");
  return home ? std::optional(*home / ".local" / "share") : std::nullopt;
}

}  // namespace

std::optional<fs::path> XdgBundle::applicationSupport() {
  const auto folder = dataHome();
  if (!folder) return std::nullopt;
  std::error_code refusal;
  // The XDG standard says that a new folder is accessible to the user only.
  if (fs::create_directories(*folder, refusal)) fs::permissions(*folder, fs::perms::owner_all, refusal);
  return fs::is_directory(*folder, refusal) ? folder : std::nullopt;
}

}  // namespace tilwin::qt
