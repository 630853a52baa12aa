#include "tests/desktop/floods/Callers.h"

#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <utility>

namespace tilwin::desktop {

Callers::Callers(std::string socket, std::function<std::string(unsigned call)> say, bool isPatient)
    : socket_(std::move(socket)), say_(std::move(say)), isPatient_(isPatient), thread_([this] { run(); }) {}

Callers::~Callers() {
  ends_ = true;
  thread_.join();
}

void Callers::run() {
  auto next = std::chrono::steady_clock::now();
  while (!ends_) {
    call(calls_++);
    next += pause;
    std::this_thread::sleep_until(next);
  }
}

void Callers::call(unsigned number) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  socket_.copy(static_cast<char*>(address.sun_path), sizeof address.sun_path - 1);
  const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  const timeval longestAnswer{.tv_sec = 5, .tv_usec = 0};
  setsockopt(socket, SOL_SOCKET, SO_RCVTIMEO, &longestAnswer, sizeof longestAnswer);
  if (connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0) {
    const std::string bytes = say_(number);
    const bool wasSent = send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL) >= 0;
    std::array<char, 4096> answer{};
    bool wasAnswered = false;
    while (wasSent && isPatient_ && recv(socket, answer.data(), answer.size(), 0) > 0) wasAnswered = true;
    if (wasAnswered) ++answered_;
  }
  close(socket);
}

}  // namespace tilwin::desktop
