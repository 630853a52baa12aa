#pragma once

#include <QObject>
#include <functional>
#include <vector>

#include "platform/ports/MainQueue.h"

namespace tilwin::qt {

/// The main queue on Qt's event loop. A QCoreApplication must exist as long as this does.
class QtMainQueue : public MainQueue {
public:
  QtMainQueue() = default;

  void post(Task task) override;
  void postAfter(Seconds delay, Task task) override;
  [[nodiscard]] std::unique_ptr<Repetition> repeat(Seconds interval, Seconds tolerance, Task task) override;
  [[nodiscard]] WallTime now() const override;
  [[nodiscard]] Seconds uptime() const override;
  int run() override;
  void stop(int exitStatus) override;
  void onAboutToStop(Task task) override { aboutToStop_.push_back(std::move(task)); }

  /// Without its display the process ends at once: the tasks that wait for the stop and after them this one
  /// are run, and the exit status is 0, or 1 if the loop does not run yet. Qt calls exit(3) from inside the
  /// loop when it finds its own connection broken; whoever finds another one broken calls `loseDisplay`.
  void onDisplayLost(Task task) { displayLost_ = std::move(task); }
  [[noreturn]] void loseDisplay();

  /// Calls the task when the descriptor becomes readable.
  void watch(int fileDescriptor, const Task& task);
  /// Calls the task each time before the loop sleeps. Needed for libraries that read ahead, such as xcb: they
  /// may have events in memory while their descriptor is not readable. If the task returns true, there is
  /// more to do: it is called again after everything else has had its turn, without a sleep.
  void beforeEachSleep(const std::function<bool()>& task);

private:
  void finish();
  static void finishInsideLoop();

  QObject context_;
  Task displayLost_;
  std::vector<Task> aboutToStop_;
};

}  // namespace tilwin::qt
