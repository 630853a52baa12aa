#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <string>
#include <thread>

namespace tilwin::desktop {

/// One call of the program by another; returns whether something came back.
using CallMaker = std::function<bool(unsigned call)>;

/// Over the socket for commands, each time with a connection of its own. `say` makes the bytes of a call;
/// what comes back is read until the other end hangs up, unless `isPatient` is false: then the call is ended
/// at once.
[[nodiscard]] CallMaker socketCalls(std::string socket, std::function<std::string(unsigned call)> say,
                                    bool isPatient);
/// Over the session bus at this address, to the instance of the display.
[[nodiscard]] CallMaker busCalls(const std::string& address, const std::string& display);

/// Makes a thousand calls a second, on a thread of its own. The destructor ends it.
class Callers {
public:
  static constexpr std::chrono::microseconds pause{1000};

  explicit Callers(CallMaker call);
  Callers(const Callers&) = delete;
  Callers& operator=(const Callers&) = delete;
  ~Callers();

  [[nodiscard]] unsigned calls() const { return calls_; }
  [[nodiscard]] unsigned answered() const { return answered_; }

private:
  void run();

  CallMaker call_;
  std::atomic<bool> ends_ = false;
  std::atomic<unsigned> calls_ = 0;
  std::atomic<unsigned> answered_ = 0;
  std::thread thread_;
};

}  // namespace tilwin::desktop
