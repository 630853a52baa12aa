#pragma once

#include <sys/types.h>

#include <filesystem>
#include <memory>

namespace tilwin::desktop {

/// What must not outlive this process: process groups and folders. Whoever makes one enrols it here and
/// strikes it off when it is gone. Thread-safe.
class ExitGuard {
public:
  /// False once endNow has begun: the caller must end what it just made, itself.
  static bool enrolGroup(pid_t group);
  static void strikeGroup(pid_t group);
  static void enrolFolder(const std::filesystem::path& folder);
  static void strikeFolder(const std::filesystem::path& folder);

  /// Kills every enrolled group and removes every enrolled folder. Nothing more can be enrolled.
  static void endNow();
};

/// While it lives, SIGINT, SIGTERM and SIGHUP end this process as they usually do, but not before
/// ExitGuard::endNow. Make one at the start of main, before any other thread: the signals are blocked in
/// every thread and taken by a thread of its own. (A SIGKILL cannot be caught; the children that
/// ChildProcess started then die by their parent-death signal, and only folders stay.)
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
