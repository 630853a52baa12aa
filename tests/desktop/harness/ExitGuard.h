#pragma once

#include <sys/types.h>

#include <filesystem>
#include <memory>

namespace tilwin::desktop {

/// Process groups and folders that must not outlive this process. Their creators register them here and
/// unregister them when they are gone. Thread-safe.
class ExitGuard {
public:
  /// Returns false once endNow has begun: the caller must then clean up what it just created.
  static bool enrolGroup(pid_t group);
  static void strikeGroup(pid_t group);
  static void enrolFolder(const std::filesystem::path& folder);
  static void strikeFolder(const std::filesystem::path& folder);

  /// Kills every registered group and removes every registered folder. Nothing can be registered afterwards.
  static void endNow();
};

/// While it exists, SIGINT, SIGTERM and SIGHUP call ExitGuard::endNow before they end this process as usual.
/// Create one at the start of main, before any other thread: the signals are blocked in every thread and
/// handled by a dedicated one. (SIGKILL cannot be caught; children of ChildProcess then die by their
/// parent-death signal, and only folders remain.)
class EndOnSignal {
public:
  EndOnSignal();
  ~EndOnSignal();
  EndOnSignal(const EndOnSignal&) = delete;
  EndOnSignal& operator=(const EndOnSignal&) = delete;

private:
  struct Taker;
  std::unique_ptr<Taker> taker_;
};

}  // namespace tilwin::desktop
