#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace tilwin {

/// The program's one thread of work: everything the program does runs as a task of this queue or in answer
/// to a desktop event that the same loop delivers. Times are seconds; wall-clock times are UTC.
class MainQueue {
public:
  using Task = std::function<void()>;
  using Seconds = std::chrono::duration<double>;
  using WallTime = std::chrono::system_clock::time_point;

  /// A repetition that lasts as long as this object does.
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

  /// Runs the task after what runs now has returned, never inside this call; tasks run in the order posted.
  virtual void post(Task task) = 0;
  /// Runs the task once, no earlier than `delay` from now.
  virtual void postAfter(Seconds delay, Task task) = 0;
  /// Runs the task every `interval`, each time up to `tolerance` late so that wake-ups can be shared.
  [[nodiscard]] virtual std::unique_ptr<Repetition> repeat(Seconds interval, Seconds tolerance,
                                                           Task task) = 0;

  [[nodiscard]] virtual WallTime now() const = 0;
  /// Seconds on a clock that never goes back; only differences mean anything.
  [[nodiscard]] virtual Seconds uptime() const = 0;

  /// Runs tasks and desktop events until `stop`; the result is the exit status given to `stop`.
  virtual int run() = 0;
  /// Ends `run` after the current task; tasks given to `onAboutToStop` then run in their order before it
  /// returns.
  virtual void stop(int exitStatus) = 0;
  virtual void onAboutToStop(Task task) = 0;
};

}  // namespace tilwin
