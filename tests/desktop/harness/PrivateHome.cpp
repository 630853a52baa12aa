#include "tests/desktop/harness/PrivateHome.h"

#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sstream>
#include <thread>

#include "tests/desktop/harness/Descriptor.h"
#include "tests/desktop/harness/ExitGuard.h"
#include "tests/desktop/harness/HarnessError.h"
#include "tests/desktop/harness/Waiting.h"

namespace tilwin::desktop {

namespace {

struct Variable {
  const char* name = nullptr;
  const char* value = nullptr;
};

constexpr std::array<Variable, 13> fixedVariables{{
    {"LANG", "C.UTF-8"},
    {"SHELL", "/bin/sh"},
    {"XDG_DATA_DIRS", "/usr/local/share:/usr/share"},
    {"XDG_CONFIG_DIRS", "/etc/xdg"},
    {"XDG_SESSION_TYPE", "x11"},
    {"GDK_BACKEND", "x11"},
    {"QT_QPA_PLATFORM", "xcb"},
    {"NO_AT_BRIDGE", "1"},
    {"GTK_A11Y", "none"},
    {"QT_ACCESSIBILITY", "0"},
    {"GSETTINGS_BACKEND", "keyfile"},
    {"GIO_USE_VFS", "local"},
    {"LIBGL_ALWAYS_SOFTWARE", "1"},
}};

/// Taken over when set: where programs are, and how an instrumented build reports.
constexpr std::array<const char*, 8> inheritedVariables{"PATH",          "LD_LIBRARY_PATH",  "ASAN_OPTIONS",
                                                        "UBSAN_OPTIONS", "LSAN_OPTIONS",     "TSAN_OPTIONS",
                                                        "GCOV_PREFIX",   "LLVM_PROFILE_FILE"};

std::filesystem::path makeTemporaryFolder() {
  std::string name = (std::filesystem::temp_directory_path() / "tilwin-desktop-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr)
    throw HarnessError("cannot make " + name + ": " + std::strerror(errno));
  return name;
}

std::string readEnvironment(const std::filesystem::path& process) {
  std::ifstream file(process / "environ", std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

/// In the midst of an exec a process has a program file but no environment yet, which is not to be taken for
/// an empty one: a daemon that just starts would be missed.
std::string environmentOf(pid_t process) {
  constexpr Milliseconds longestExec{100};
  const std::filesystem::path folder = "/proc/" + std::to_string(process);
  const auto end = Clock::now() + longestExec;
  std::error_code gone;
  std::string text = readEnvironment(folder);
  while (text.empty() && std::filesystem::exists(folder / "exe", gone) && Clock::now() < end) {
    std::this_thread::sleep_for(Milliseconds{1});
    text = readEnvironment(folder);
  }
  return text;
}

void endProcess(pid_t process, const std::string& sign) {
  const ProcessHandle handle(process);
  // The number may have passed to another process before the handle was made.
  if (!handle || environmentOf(process).find(sign) == std::string::npos) return;
  handle.signal(SIGTERM);
  if (handle.waitForEnd(Milliseconds{1000})) return;
  handle.signal(SIGKILL);
  handle.waitForEnd(Milliseconds{1000});
}

}  // namespace

std::vector<pid_t> processesIn(const std::string& home) {
  std::vector<pid_t> found;
  for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
    const std::string name = entry.path().filename();
    if (!std::all_of(name.begin(), name.end(), [](char c) { return c >= '0' && c <= '9'; })) continue;
    const pid_t process = std::stoi(name);
    if (environmentOf(process).find(home) != std::string::npos) found.push_back(process);
  }
  return found;
}

PrivateHome::PrivateHome() : path_(makeTemporaryFolder()) {
  ExitGuard::enrolFolder(path_);
  for (const auto& folder : {config(), data(), cache(), runtime(), path_ / "logs"}) {
    std::filesystem::create_directories(folder);
  }
  std::filesystem::permissions(runtime(), std::filesystem::perms::owner_all);
}

PrivateHome::~PrivateHome() {
  endProcesses();
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
  ExitGuard::strikeFolder(path_);
}

std::filesystem::path PrivateHome::log(const std::string& name) const {
  return path_ / "logs" / (name + ".log");
}

Environment PrivateHome::environment() const {
  Environment environment;
  for (const auto& variable : fixedVariables) environment.set(variable.name, variable.value);
  for (const char* name : inheritedVariables) {
    if (const char* value = std::getenv(name)) environment.set(name, value);
  }
  if (const passwd* user = getpwuid(getuid())) {
    environment.set("USER", user->pw_name);
    environment.set("LOGNAME", user->pw_name);
  }
  environment.set("HOME", path_);
  environment.set("XDG_CONFIG_HOME", config());
  environment.set("XDG_DATA_HOME", data());
  environment.set("XDG_CACHE_HOME", cache());
  environment.set("XDG_RUNTIME_DIR", runtime());
  return environment;
}

void PrivateHome::write(const std::filesystem::path& relative, const std::string& text) const {
  const auto file = path_ / relative;
  std::filesystem::create_directories(file.parent_path());
  std::ofstream stream(file, std::ios::binary | std::ios::trunc);
  stream << text;
  stream.close();
  if (!stream) throw HarnessError("cannot write " + file.string());
}

void PrivateHome::writeScript(const std::filesystem::path& relative, const std::string& text) const {
  write(relative, text);
  std::filesystem::permissions(path_ / relative, std::filesystem::perms::owner_all);
}

void PrivateHome::endProcesses() const {
  for (const pid_t process : processes()) endProcess(process, path_.string());
}

}  // namespace tilwin::desktop
