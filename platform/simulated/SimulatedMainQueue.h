#pragma once

#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "platform/ports/MainQueue.h"

namespace tilwin {

/// The main queue of a simulated desktop, with a clock moved by hand. Time passes only in `advance`, and in
/// `run` when nothing is due; tasks of one moment run in the order they were asked for. `run` aborts when
/// nothing is left that could ever stop it.
class SimulatedMainQueue final : public MainQueue {
public:
  /// Runs what is due now, and what that asks for at once in turn. Returns whether anything ran.
  bool runDue();
  /// Lets this much time pass, running each task at its moment.
  void advance(Seconds by);
  /// The user or a time server sets the clock; nothing that waits is affected.
  void setWallClock(WallTime now);
  /// Whether nothing waits, now or for later.
  [[nodiscard]] bool isIdle() const { return waiting_.empty(); }
  /// The status given to `stop`, once it was; nothing runs any more until `run`.
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
