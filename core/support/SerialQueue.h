#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

namespace tilwin {

/// Runs tasks one after another, in the order given, on its own thread. May be used from any other thread.
class SerialQueue {
public:
  using Task = std::function<void()>;

  /// The label names the queue in the message if a task throws, which aborts the program.
  explicit SerialQueue(std::string label);
  SerialQueue(const SerialQueue&) = delete;
  SerialQueue& operator=(const SerialQueue&) = delete;
  /// Waits until all tasks have run.
  ~SerialQueue();

  /// Adds a task and returns at once.
  void async(Task task);
  /// Adds a task and waits until it and all tasks before it have run. Deadlocks when called from a task.
  void sync(const Task& task);

private:
  void work();
  void perform(const Task& task) const;

  const std::string label_;
  std::mutex mutex_;  ///< guards `tasks_` and `ending_`
  std::condition_variable changed_;
  std::deque<Task> tasks_;
  bool ending_ = false;
  std::thread worker_;  ///< last member, so that it starts after the members it uses are constructed
};

}  // namespace tilwin
