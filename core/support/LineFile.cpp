#include "core/support/LineFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <system_error>
#include <thread>
#include <utility>

#include "core/support/AtomicFile.h"

namespace tilwin {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

constexpr auto longestWait = 2s;
constexpr auto shortestPause = 100us;
constexpr auto longestPause = 20ms;

/// A descriptor of a regular file, or -1. Without O_NONBLOCK, opening a named pipe would block.
int openRegular(const fs::path& path, int flags) {
  const int descriptor = ::open(path.c_str(), flags | O_NONBLOCK | O_CLOEXEC, ownerOnly);
  struct stat facts {};
  if (descriptor < 0 || (::fstat(descriptor, &facts) == 0 && S_ISREG(facts.st_mode))) return descriptor;
  ::close(descriptor);
  return -1;
}

int openForWriting(const fs::path& path) {
  constexpr int flags = O_RDWR | O_APPEND | O_CREAT;
  const int descriptor = openRegular(path, flags);
  if (descriptor >= 0 || errno != ENOENT || !path.has_parent_path()) return descriptor;
  std::error_code ignored;
  fs::create_directories(path.parent_path(), ignored);
  return openRegular(path, flags);
}

bool waitForTurn(int descriptor) {
  const auto deadline = std::chrono::steady_clock::now() + longestWait;
  for (std::chrono::microseconds pause = shortestPause; ::flock(descriptor, LOCK_EX | LOCK_NB) != 0;
       pause = std::min<std::chrono::microseconds>(2 * pause, longestPause)) {
    // The file system does not support locks: other writers cannot be detected, so go on as if locked.
    if (errno != EWOULDBLOCK) return true;
    if (std::chrono::steady_clock::now() >= deadline) return false;
    std::this_thread::sleep_for(pause);
  }
  return true;
}

/// Whether the path still names the opened file: it may have been replaced while waiting for the lock.
bool isStillAt(const fs::path& path, int descriptor) {
  struct stat opened {};
  struct stat found {};
  return ::fstat(descriptor, &opened) == 0 && ::stat(path.c_str(), &found) == 0 &&
         opened.st_dev == found.st_dev && opened.st_ino == found.st_ino;
}

off_t sizeOf(int descriptor) {
  struct stat facts {};
  return ::fstat(descriptor, &facts) == 0 ? facts.st_size : 0;
}

/// Reads from `start` to the end and passes each block to `take`; false if a read fails.
template <typename Take>
bool readFrom(int descriptor, off_t start, const Take& take) {
  std::array<char, 65536> block{};
  for (;;) {
    const ssize_t count = ::pread(descriptor, block.data(), block.size(), start);
    if (count < 0 && errno == EINTR) continue;
    if (count <= 0) return count == 0;
    take(std::string_view(block.data(), static_cast<std::size_t>(count)));
    start += count;
  }
}

bool endsInsideALine(int descriptor) {
  const off_t size = sizeOf(descriptor);
  char last = '\n';
  return size > 0 && ::pread(descriptor, &last, 1, size - 1) == 1 && last != '\n';
}

bool writeWhole(int descriptor, std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = ::write(descriptor, text.data(), text.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    text.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

}  // namespace

LineFile::LineFile(LineFile&& other) noexcept
    : descriptor_(std::exchange(other.descriptor_, -1)), heldAlone_(other.heldAlone_) {}

LineFile& LineFile::operator=(LineFile&& other) noexcept {
  std::swap(descriptor_, other.descriptor_);
  std::swap(heldAlone_, other.heldAlone_);
  return *this;
}

LineFile::~LineFile() {
  if (descriptor_ >= 0) ::close(descriptor_);
}

std::optional<std::string> LineFile::read(const fs::path& path) {
  const int descriptor = openRegular(path, O_RDONLY);
  if (descriptor < 0) return std::nullopt;
  const LineFile closing(descriptor, false);
  // One more byte, which is a line feed if the last `mostRead` bytes start with a whole line.
  const off_t size = sizeOf(descriptor);
  const off_t start = std::max<off_t>(size - static_cast<off_t>(mostRead) - 1, 0);
  std::string content;
  content.reserve(static_cast<std::size_t>(size - start));
  if (!readFrom(descriptor, start, [&](std::string_view block) { content += block; })) return std::nullopt;
  if (start > 0) content.erase(0, std::min(content.find('\n'), content.size() - 1) + 1);
  return content;
}

std::vector<std::string_view> LineFile::split(std::string_view content) {
  std::vector<std::string_view> lines;
  while (!content.empty()) {
    const std::string_view line = content.substr(0, content.find('\n'));
    if (!line.empty()) lines.push_back(line);
    content.remove_prefix(std::min(line.size() + 1, content.size()));
  }
  return lines;
}

std::optional<LineFile> LineFile::take(const fs::path& path) {
  constexpr int attempts = 100;
  for (int attempt = 0; attempt < attempts; ++attempt) {
    const int descriptor = openForWriting(path);
    if (descriptor < 0) return std::nullopt;
    LineFile file(descriptor, waitForTurn(descriptor));
    if (!isStillAt(path, descriptor)) continue;
    if (sizeOf(descriptor) == 0) ::fchmod(descriptor, ownerOnly);
    return file;
  }
  return std::nullopt;
}

std::size_t LineFile::count() const {
  std::size_t ends = endsInsideALine(descriptor_) ? 1 : 0;
  readFrom(descriptor_, 0, [&](std::string_view block) {
    for (auto end = block.find('\n'); end != std::string_view::npos; end = block.find('\n', end + 1)) ++ends;
  });
  return ends;
}

bool LineFile::append(std::string_view line) {
  const off_t before = sizeOf(descriptor_);
  std::string text = endsInsideALine(descriptor_) ? "\n" : "";
  text.append(line).append("\n");
  if (writeWhole(descriptor_, text)) return true;
  // Without the lock the partial line must stay: truncating could remove another process's line.
  [[maybe_unused]] const bool isUndone = heldAlone_ && ::ftruncate(descriptor_, before) == 0;
  return false;
}

}  // namespace tilwin
