#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/desktop/harness/Environment.h"

namespace tilwin::desktop {

/// The processes with the path of that home in their environment.
std::vector<pid_t> processesIn(const std::string& home);

/// A temporary home folder with the XDG base folders in it (XDG Base Directory Specification), and the
/// environment that keeps programs inside it. The destructor ends every process that still runs in this
/// home, whatever group or parent it has by then, and removes the folder.
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
  /// The log of a program started by the kit: "logs/<name>.log".
  std::filesystem::path log(const std::string& name) const;

  /// HOME, the XDG folders, PATH, LANG=C.UTF-8, and what keeps toolkits quiet and alike everywhere. No
  /// DISPLAY, no bus, nothing of the desktop that started this process.
  Environment environment() const;

  /// Writes a file below the home, with its folders. Throws HarnessError on failure.
  void write(const std::filesystem::path& relative, const std::string& text) const;

  /// The processes that run in this home.
  std::vector<pid_t> processes() const { return processesIn(path_.string()); }

private:
  void endProcesses() const;

  std::filesystem::path path_;
};

}  // namespace tilwin::desktop
