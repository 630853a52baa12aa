#pragma once

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <functional>
#include <future>
#include <system_error>

namespace tilwin {

/// Makes a named pipe and does something that may open it. Whether that waits for somebody to write into it;
/// after two seconds it is freed from that.
inline bool waitsForNamedPipe(const std::filesystem::path& pipe, const std::function<void()>& deed) {
  if (::mkfifo(pipe.c_str(), 0600) != 0)
    throw std::system_error(errno, std::generic_category(), "cannot make a named pipe");
  std::promise<void> finished;
  auto waits = std::async(std::launch::async, [&pipe, done = finished.get_future()] {
    constexpr std::chrono::seconds patience{2};
    bool hasWaited = false;
    for (; done.wait_for(patience) != std::future_status::ready; hasWaited = true) {
      const int writeEnd = ::open(pipe.c_str(), O_WRONLY | O_NONBLOCK | O_CLOEXEC);
      if (writeEnd >= 0) ::close(writeEnd);
    }
    return hasWaited;
  });
  deed();
  finished.set_value();
  return waits.get();
}

}  // namespace tilwin
