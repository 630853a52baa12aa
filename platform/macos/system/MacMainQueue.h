#pragma once

#include <memory>
#include <vector>

#include "platform/macos/support/NotificationObserver.h"
#include "platform/ports/MainQueue.h"

namespace tilwin::macos {

/// The main queue on AppKit's event loop. The shared NSApplication must exist as long as this does. The tasks
/// of `onAboutToStop` also run when the system ends the program, which it does without letting `run` return.
class MacMainQueue final : public MainQueue {
public:
  MacMainQueue();

  void post(Task task) override;
  void postAfter(Seconds delay, Task task) override;
  [[nodiscard]] std::unique_ptr<Repetition> repeat(Seconds interval, Seconds tolerance, Task task) override;
  [[nodiscard]] WallTime now() const override;
  [[nodiscard]] Seconds uptime() const override;
  int run() override;
  /// Ends open modal dialogs too.
  void stop(int exitStatus) override;
  void onAboutToStop(Task task) override;

private:
  void endLoop();
  void finish();

  /// Tasks that wait hold this weakly, so that they do nothing after the queue is destroyed.
  std::shared_ptr<MacMainQueue*> self_;
  std::vector<Task> aboutToStop_;
  int exitStatus_ = 0;
  NotificationObserver termination_;
};

}  // namespace tilwin::macos
