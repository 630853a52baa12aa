#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace tilwin {

/// The event loop of the main thread. Everything the program does runs as a task of this queue or as a
/// handler of a desktop event that the same loop delivers. Call it from the main thread only. Times are
/// seconds; wall-clock times are UTC.
class MainQueue {
public:
  using Task = std::function<void()>;
  using Seconds = std::chrono::duration<double>;
  using WallTime = std::chrono::system_clock::time_point;

  /// A repeating task; destroying this object ends the repetition.
  class Repetition {
  public:
    Repetition() = default;
    Repetition(const Repetition&) = delete;
    Repetition& operator=(const Repetition&) = delete;
    virtual ~Repetition() = default;
  };

  MainQueue() = default;
  MainQueue(const MainQueue&) = delete;
  MainQueue& operator=(const MainQueue&) = delete;
  virtual ~MainQueue() = default;

  /// Runs the task after the current task or event handler has returned, never inside this call. Tasks run in
  /// the order in which they were posted.
  virtual void post(Task task) = 0;
  /// Runs the task once, no earlier than `delay` from now.
  virtual void postAfter(Seconds delay, Task task) = 0;
  /// Runs the task every `interval`. Each run may be up to `tolerance` late, so that the system can combine
  /// wake-ups.
  [[nodiscard]] virtual std::unique_ptr<Repetition> repeat(Seconds interval, Seconds tolerance,
                                                           Task task) = 0;

  [[nodiscard]] virtual WallTime now() const = 0;
  /// Time on a monotonic clock with an unspecified start; use only differences.
  [[nodiscard]] virtual Seconds uptime() const = 0;

  /// Runs tasks and delivers desktop events until `stop` is called. Returns the exit status given to `stop`.
  virtual int run() = 0;
  /// Ends `run` after the current task. The tasks given to `onAboutToStop` run, in that order, before `run`
  /// returns.
  virtual void stop(int exitStatus) = 0;
  virtual void onAboutToStop(Task task) = 0;
};

}  // namespace tilwin
