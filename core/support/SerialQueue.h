#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

namespace tilwin {

/// Tasks done one after another, in the order given, on a thread of the queue's own. For any thread but that
/// one.
class SerialQueue {
public:
  using Task = std::function<void()>;

  /// The label names the queue should one of its tasks throw, which ends the program.
  explicit SerialQueue(std::string label);
  SerialQueue(const SerialQueue&) = delete;
  SerialQueue& operator=(const SerialQueue&) = delete;
  /// Does everything that was given before.
  ~SerialQueue();

  /// Returns at once.
  void async(Task task);
  /// Waits until the task, and with it all given before, is done.
  void sync(const Task& task);

private:
  void work();
  void perform(const Task& task) const;

  const std::string label_;
  std::mutex mutex_;  ///< guards what follows
  std::condition_variable changed_;
  std::deque<Task> tasks_;
  bool ending_ = false;
  std::thread worker_;  ///< last: it uses all of the above
};

}  // namespace tilwin
