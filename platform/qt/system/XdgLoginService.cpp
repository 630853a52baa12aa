#include "platform/qt/system/XdgLoginService.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <system_error>

#include "core/support/AtomicFile.h"
#include "platform/qt/XdgFolders.h"

namespace tilwin::qt {
namespace {

namespace fs = std::filesystem;
using Status = LoginService::Status;

constexpr const char* noConfigHome = "there is no home folder";
/// In bytes; entries are a few hundred.
constexpr std::size_t largestEntry = 65536;

struct EntrySetting {
  std::string_view key;
  std::string_view value;

  bool operator==(const EntrySetting&) const = default;
};

/// By these, desktops turn an entry off in their settings.
constexpr std::array turnedOff = std::to_array<EntrySetting>({
    {"Hidden", "true"},
    {"X-GNOME-Autostart-enabled", "false"},
    {"X-MATE-Autostart-enabled", "false"},
});

/// Whether something has that name, or that cannot be told.
bool mayExist(const fs::path& path) {
  std::error_code refusal;
  return fs::symlink_status(path, refusal).type() != fs::file_type::not_found;
}

std::optional<fs::path> entryPath() {
  const auto config = XdgFolders::configHome();
  return config ? std::optional(*config / "autostart" / "tilwin.desktop") : std::nullopt;
}

struct EntryEscape {
  char written;
  std::string_view inEntry;
};

constexpr std::array entryEscapes = std::to_array<EntryEscape>({
    {'\\', "\\\\"},
    {'\n', "\\n"},
    {'\t', "\\t"},
    {'\r', "\\r"},
});

/// A value of type string as a desktop entry writes it.
std::string entryString(std::string_view value) {
  std::string result;
  for (const char each : value) {
    const auto* const escape = std::find_if(entryEscapes.begin(), entryEscapes.end(),
                                            [&](const EntryEscape& row) { return row.written == each; });
    escape == entryEscapes.end() ? result += each : result += escape->inEntry;
  }
  return result;
}

/// What such a value means.
std::string stringOf(std::string_view entryValue) {
  std::string result;
  while (!entryValue.empty()) {
    const auto* const escape =
        std::find_if(entryEscapes.begin(), entryEscapes.end(),
                     [&](const EntryEscape& row) { return entryValue.starts_with(row.inEntry); });
    result += escape == entryEscapes.end() ? entryValue.front() : escape->written;
    entryValue.remove_prefix(escape == entryEscapes.end() ? 1 : escape->inEntry.size());
  }
  return result;
}

/// Desktops skip an entry whose TryExec is not there. A name without a folder is not looked for here.
bool isThere(std::string_view tryExec) {
  const std::string program = stringOf(tryExec);
  return !program.starts_with('/') || ::access(program.c_str(), X_OK) == 0;
}

/// A command line without arguments. Inside the quotes a backslash precedes what a shell would take for its
/// own, and a percent sign is doubled, as it begins a field code.
std::string entryCommand(std::string_view executable) {
  // GLib looks for the first word as it is written, and would not find it with doubled percent signs.
  std::string command = executable.find('%') == std::string_view::npos ? "\"" : "/usr/bin/env \"";
  for (const char each : executable) {
    if (std::string_view("\"`$\\").find(each) != std::string_view::npos) command += '\\';
    if (each == '%') command += '%';
    command += each;
  }
  return command + "\"";
}

std::string entryFor(const fs::path& executable) {
  return "[Desktop Entry]\n"
         "Type=Application\n"
         "Version=1.5\n"
         "Name=Tilwin\n"
         "Comment=Snaps windows into place\n"
         "TryExec=" +
         entryString(executable.native()) +
         "\n"
         "Exec=" +
         entryString(entryCommand(executable.native())) +
         "\n"
         "Terminal=false\n"
         "StartupNotify=false\n";
}

std::string_view withoutBlanks(std::string_view part) {
  const auto isBlank = [](char each) { return each == ' ' || each == '\t' || each == '\r'; };
  while (!part.empty() && isBlank(part.front())) part.remove_prefix(1);
  while (!part.empty() && isBlank(part.back())) part.remove_suffix(1);
  return part;
}

/// Whether a desktop that reads this entry starts a program.
bool startsAProgram(std::string_view entry) {
  bool isInGroup = false;
  bool hasCommand = false;
  while (!entry.empty()) {
    const auto end = std::min(entry.find('\n'), entry.size());
    const std::string_view line = withoutBlanks(entry.substr(0, end));
    entry.remove_prefix(std::min(end + 1, entry.size()));
    if (line.starts_with('[')) isInGroup = line == "[Desktop Entry]";
    const auto equals = line.find('=');
    if (!isInGroup || line.starts_with('#') || equals == std::string_view::npos) continue;
    const EntrySetting setting{withoutBlanks(line.substr(0, equals)), withoutBlanks(line.substr(equals + 1))};
    if (std::find(turnedOff.begin(), turnedOff.end(), setting) != turnedOff.end()) return false;
    if (setting.key == "TryExec" && !isThere(setting.value)) return false;
    hasCommand = hasCommand || (setting.key == "Exec" && !setting.value.empty());
  }
  return hasCommand;
}

}  // namespace

fs::path XdgLoginService::runningExecutable() {
  std::error_code refusal;
  const std::string path = fs::read_symlink("/proc/self/exe", refusal).native();
  // What Linux appends when the file was replaced.
  constexpr std::string_view replaced = " (deleted)";
  return path.ends_with(replaced) ? path.substr(0, path.size() - replaced.size()) : path;
}

std::optional<std::string> XdgLoginService::registerProgram() {
  const auto path = entryPath();
  if (!path) return noConfigHome;
  const std::string entry = entryFor(executable_);
  if (AtomicFile::read(*path, largestEntry) == entry) return std::nullopt;
  try {
    AtomicFile::replace(*path, entry);
    return std::nullopt;
  } catch (const fs::filesystem_error& error) {
    return error.what();
  }
}

std::optional<std::string> XdgLoginService::unregisterProgram() {
  const auto path = entryPath();
  if (!path) return noConfigHome;
  std::error_code refusal;
  fs::remove(*path, refusal);
  if (refusal && mayExist(*path)) return "cannot remove " + path->string() + ": " + refusal.message();
  return std::nullopt;
}

Status XdgLoginService::status() {
  const auto path = entryPath();
  if (!path) return Status::notFound;
  const auto entry = AtomicFile::read(*path, largestEntry);
  if (entry) return startsAProgram(*entry) ? Status::enabled : Status::notRegistered;
  return mayExist(*path) ? Status::notFound : Status::notRegistered;
}

}  // namespace tilwin::qt
