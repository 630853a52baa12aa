// The program `tilwin` on Linux. A command goes to the running instance, and only its answer is printed here:
// no toolkit is loaded, so that a key binding takes about as long as it takes to start a process. Everything
// else is for the program proper, which takes this process's place.

#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "app/client/Places.h"
#include "core/commands/CommandWire.h"

namespace {

using tilwin::CommandWire;

std::string_view variable(const char* name) {
  const char* const value = std::getenv(name);
  return value == nullptr ? std::string_view() : value;
}

bool sendAll(int socket, std::string_view bytes) {
  while (!bytes.empty()) {
    const auto sent = send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (sent < 0 && errno == EINTR) continue;
    if (sent <= 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(sent));
  }
  return true;
}

bool isFromThisUser(int socket) {
  ucred server{};
  socklen_t size = sizeof server;
  return getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &server, &size) == 0 && server.uid == getuid();
}

/// Commands are carried out at once; an instance that has been stopped would be waited for without end.
constexpr timeval longestAnswer{.tv_sec = 10, .tv_usec = 0};
constexpr timeval noLimit{.tv_sec = 0, .tv_usec = 0};

/// Connected to the instance; -1 if there is none, or another user has taken its place.
int connectTo(const std::string& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (path.size() >= sizeof address.sun_path) return -1;
  std::memcpy(static_cast<char*>(address.sun_path), path.c_str(), path.size() + 1);
  const int socket = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  setsockopt(socket, SOL_SOCKET, SO_RCVTIMEO, &longestAnswer, sizeof longestAnswer);
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-reinterpret-cast): as connect(2) wants it
  if (connect(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
      isFromThisUser(socket)) {
    return socket;
  }
  close(socket);
  return -1;
}

struct Answer {
  std::optional<int> status{};  ///< nothing if the answer ended before it
  bool wasHeard = true;         ///< false if the request was never read, so that nothing was done
};

/// Prints each frame as it comes.
Answer printAnswer(int socket) {
  std::string bytes;
  for (std::array<char, 4096> chunk{};;) {
    const auto count = recv(socket, chunk.data(), chunk.size(), 0);
    if (count < 0 && errno == EINTR) continue;
    // The other end was closed with the request still in it: the instance was about to end.
    if (count < 0 && errno == ECONNRESET && bytes.empty()) return {.wasHeard = false};
    if (count <= 0) return {};
    bytes.append(chunk.data(), static_cast<std::size_t>(count));
    while (const auto frame = CommandWire::firstFrame(bytes)) {
      if (frame->kind == CommandWire::FrameKind::status) return {.status = CommandWire::statusOf(*frame)};
      // An instance that is watched says so with an empty frame, and may then be silent for days.
      if (frame->content.empty()) setsockopt(socket, SOL_SOCKET, SO_RCVTIMEO, &noLimit, sizeof noLimit);
      std::FILE* const stream = frame->kind == CommandWire::FrameKind::output ? stdout : stderr;
      std::fwrite(frame->content.data(), 1, frame->content.size(), stream);
      std::fflush(stream);
      bytes.erase(0, frame->size);
    }
  }
}

/// The exit status of the command as the running instance has carried it out. Nothing if there is no
/// instance, so that nothing was done.
std::optional<int> askInstance(const std::vector<std::string>& arguments) {
  const auto path = CommandWire::socketPath(variable("XDG_RUNTIME_DIR"), variable("DISPLAY"));
  const auto request = CommandWire::request(arguments);
  if (!path || !request) return std::nullopt;
  const int socket = connectTo(*path);
  if (socket < 0) return std::nullopt;
  const bool wasSent = sendAll(socket, *request);
  const auto answer = printAnswer(socket);
  close(socket);
  if (answer.status) return answer.status;
  if (!wasSent || !answer.wasHeard) return std::nullopt;
  std::fputs("tilwin: Tilwin did not answer.\n", stderr);
  return 1;
}

[[noreturn]] void becomeProgram(char** arguments) {
  std::error_code unknown;
  const auto self = std::filesystem::read_symlink("/proc/self/exe", unknown).parent_path();
  for (const auto& place : tilwin::client::places) execv((self / place.program).c_str(), arguments);
  std::fprintf(stderr, "tilwin: the program is not installed beside %s\n", self.c_str());
  std::_Exit(127);
}

}  // namespace

int main(int argc, char** argv) {
  const std::string_view first = argc > 1 ? argv[1] : "";
  // The version is that of what was called, which an update may have replaced since the instance started.
  const bool isForInstance = !first.empty() && first.front() != '-' && first != "version";
  if (isForInstance) {
    if (const auto status = askInstance({argv + 1, argv + argc})) return *status;
  }
  becomeProgram(argv);
}
