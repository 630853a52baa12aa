#pragma once

#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "platform/ports/MainQueue.h"

namespace tilwin {

/// The main queue of a simulated desktop, whose clock is set by the test. Time passes only in `advance`, and
/// in `run` when nothing is due. Tasks due at the same time run in the order in which they were posted. `run`
/// aborts the process if no task is left that could stop it.
class SimulatedMainQueue final : public MainQueue {
public:
  /// Runs all tasks due now, including those that they post. Returns whether any task ran.
  bool runDue();
  /// Lets this much time pass and runs each task when it is due.
  void advance(Seconds by);
  /// Sets the wall clock, as a user or a time server does. Does not affect waiting tasks.
  void setWallClock(WallTime now);
  /// Whether no task waits, now or later.
  [[nodiscard]] bool isIdle() const { return waiting_.empty(); }
  /// The status given to `stop`, if it was called. No task runs after that until `run` is called again.
  [[nodiscard]] std::optional<int> exitStatus() const { return exitStatus_; }

private:
  using Tick = std::chrono::nanoseconds;
  struct Repeating;
  class KeptRepetition;

  void post(Task task) override;
  void postAfter(Seconds delay, Task task) override;
  std::unique_ptr<Repetition> repeat(Seconds interval, Seconds tolerance, Task task) override;
  WallTime now() const override;
  Seconds uptime() const override { return uptime_; }
  int run() override;
  void stop(int exitStatus) override { exitStatus_ = exitStatus; }
  void onAboutToStop(Task task) override { beforeStopping_.push_back(std::move(task)); }

  void at(Tick moment, Task task) { waiting_.emplace(moment, std::move(task)); }
  void schedule(const std::shared_ptr<Repeating>& repeating, Tick moment);
  void runNext();
  bool runUntil(Tick moment);
  void finishStopping();

  Tick uptime_ = std::chrono::hours(1);
  WallTime bootTime_{std::chrono::sys_days{std::chrono::January / 15 / 2024} + std::chrono::hours(9)};
  std::multimap<Tick, Task> waiting_;
  std::vector<Task> beforeStopping_;
  std::optional<int> exitStatus_;
};

}  // namespace tilwin
