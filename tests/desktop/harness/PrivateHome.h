#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/desktop/harness/Environment.h"

namespace tilwin::desktop {

/// The processes that have this home's path in their environment.
std::vector<pid_t> processesIn(const std::string& home);

/// A temporary home folder with the XDG base folders (XDG Base Directory Specification), and the environment
/// that makes programs use it. The destructor ends every process still running in this home, whatever its
/// group or parent, and removes the folder.
class PrivateHome {
public:
  /// Throws HarnessError when the folders cannot be made.
  PrivateHome();
  ~PrivateHome();
  PrivateHome(const PrivateHome&) = delete;
  PrivateHome& operator=(const PrivateHome&) = delete;

  const std::filesystem::path& path() const { return path_; }
  std::filesystem::path config() const { return path_ / "config"; }
  std::filesystem::path data() const { return path_ / "data"; }
  std::filesystem::path cache() const { return path_ / "cache"; }
  std::filesystem::path runtime() const { return path_ / "run"; }
  /// The log of a program started by the harness: "logs/<name>.log".
  std::filesystem::path log(const std::string& name) const;

  /// HOME, the XDG folders, PATH, LANG=C.UTF-8, and settings that make toolkits behave alike on all machines.
  /// No DISPLAY, no bus, nothing from the desktop that started this process.
  Environment environment() const;

  /// Writes a file below the home, with its folders. Throws HarnessError on failure.
  void write(const std::filesystem::path& relative, const std::string& text) const;
  /// The same for a file that is then run.
  void writeScript(const std::filesystem::path& relative, const std::string& text) const;

  /// The processes that run in this home.
  std::vector<pid_t> processes() const { return processesIn(path_.string()); }

private:
  void endProcesses() const;

  std::filesystem::path path_;
};

}  // namespace tilwin::desktop
