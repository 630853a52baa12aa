#include "core/support/SerialQueue.h"

#include <exception>
#include <future>
#include <memory>
#include <utility>

#include "core/support/Fatal.h"

namespace tilwin {

SerialQueue::SerialQueue(std::string label) : label_(std::move(label)), worker_([this] { work(); }) {}

SerialQueue::~SerialQueue() {
  {
    const std::lock_guard guard(mutex_);
    ending_ = true;
  }
  changed_.notify_one();
  worker_.join();
}

void SerialQueue::async(Task task) {
  {
    const std::lock_guard guard(mutex_);
    tasks_.push_back(std::move(task));
  }
  changed_.notify_one();
}

void SerialQueue::sync(const Task& task) {
  // Shared: this call may return and drop its promise while `set_value` is still running on the other thread.
  const auto done = std::make_shared<std::promise<void>>();
  async([&task, done] {
    task();
    done->set_value();
  });
  done->get_future().wait();
}

void SerialQueue::work() {
  std::unique_lock guard(mutex_);
  for (;;) {
    changed_.wait(guard, [this] { return ending_ || !tasks_.empty(); });
    if (tasks_.empty()) return;
    {
      // Destroyed before locking again: destroying what the task owns may call `async`, which takes the lock.
      const Task task = std::move(tasks_.front());
      tasks_.pop_front();
      guard.unlock();
      perform(task);
    }
    guard.lock();
  }
}

void SerialQueue::perform(const Task& task) const {
  try {
    task();
  } catch (const std::exception& error) {
    fatal(label_ + ": " + error.what());
  }
}

}  // namespace tilwin
