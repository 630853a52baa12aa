#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <string>
#include <thread>

namespace tilwin::desktop {

/// Calls the socket for commands a thousand times a second, each time over a connection of its own, on a
/// thread of its own. The destructor ends it.
class Callers {
public:
  static constexpr std::chrono::microseconds pause{1000};

  /// `say` makes the bytes of a call; what comes back is read until the other end hangs up, unless
  /// `isPatient` is false: then the call is ended at once.
  Callers(std::string socket, std::function<std::string(unsigned call)> say, bool isPatient);
  Callers(const Callers&) = delete;
  Callers& operator=(const Callers&) = delete;
  ~Callers();

  [[nodiscard]] unsigned calls() const { return calls_; }
  /// Calls to which something came back.
  [[nodiscard]] unsigned answered() const { return answered_; }

private:
  void run();
  void call(unsigned number);

  std::string socket_;
  std::function<std::string(unsigned call)> say_;
  bool isPatient_;
  std::atomic<bool> ends_ = false;
  std::atomic<unsigned> calls_ = 0;
  std::atomic<unsigned> answered_ = 0;
  std::thread thread_;
};

}  // namespace tilwin::desktop
