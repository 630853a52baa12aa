#pragma once

#include <atomic>
#include <functional>
#include <string>
#include <thread>

#include "tests/desktop/harness/XConnection.h"

namespace tilwin::desktop {

/// A client of a display that does the same thing over and over, as fast as the server takes it, on a thread
/// and a connection of its own. The destructor ends it; nothing of what it did is on its way any more then.
class HostileClient {
public:
  /// Makes the requests of one round; `round` counts from 0.
  using Act = std::function<void(XConnection& client, unsigned round)>;

  HostileClient(const std::string& display, Act act);
  HostileClient(const HostileClient&) = delete;
  HostileClient& operator=(const HostileClient&) = delete;
  ~HostileClient();

  [[nodiscard]] unsigned rounds() const { return rounds_; }
  /// How many of its requests the server has refused.
  [[nodiscard]] unsigned refused() const { return refused_; }

private:
  void run();

  XConnection client_;
  Act act_;
  std::atomic<bool> ends_ = false;
  std::atomic<unsigned> rounds_ = 0;
  std::atomic<unsigned> refused_ = 0;
  std::thread thread_;
};

}  // namespace tilwin::desktop
