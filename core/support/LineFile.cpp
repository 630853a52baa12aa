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
#include "core/support/Folder.h"

namespace tilwin {
namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

constexpr auto longestWait = 2s;
constexpr auto shortestPause = 100us;
constexpr auto longestPause = 20ms;

/// A regular file that is the user's alone: owned by nobody else, with no other name, and not behind a link.
/// Without O_NONBLOCK, opening a named pipe would block.
Descriptor openOwnFile(const Descriptor& folder, const std::string& name, int flags) {
  Descriptor file(
      ::openat(folder.number(), name.c_str(), flags | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, ownerOnly));
  struct stat facts {};
  const bool isOwn = file.isOpen() && ::fstat(file.number(), &facts) == 0 && S_ISREG(facts.st_mode) &&
                     facts.st_uid == ::geteuid() && facts.st_nlink <= 1;
  if (!isOwn) file.close();
  return file;
}

Descriptor openOrMake(const fs::path& path) {
  Descriptor folder = Folder::openOwn(path);
  if (!folder.isOpen() && errno == ENOENT && Folder::make(path)) folder = Folder::openOwn(path);
  return folder;
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

/// Whether the opened file still has its name: it may have been replaced while waiting for the lock.
bool isStillIn(const Descriptor& folder, const std::string& name, int descriptor) {
  struct stat opened {};
  struct stat found {};
  return ::fstat(descriptor, &opened) == 0 &&
         ::fstatat(folder.number(), name.c_str(), &found, AT_SYMLINK_NOFOLLOW) == 0 &&
         opened.st_dev == found.st_dev && opened.st_ino == found.st_ino;
}

bool closeToOthers(int descriptor) {
  struct stat facts {};
  if (::fstat(descriptor, &facts) != 0) return false;
  return (facts.st_mode & 0777) == ownerOnly || ::fchmod(descriptor, ownerOnly) == 0;
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

std::optional<std::string> LineFile::read(const fs::path& path) {
  const Descriptor folder = Folder::openOwn(Folder::of(path));
  const Descriptor file = openOwnFile(folder, path.filename().string(), O_RDONLY);
  if (!file.isOpen()) return std::nullopt;
  // One more byte, which is a line feed if the last `mostRead` bytes start with a whole line.
  const off_t size = sizeOf(file.number());
  const off_t start = std::max<off_t>(size - static_cast<off_t>(mostRead) - 1, 0);
  std::string content;
  content.reserve(static_cast<std::size_t>(size - start));
  if (!readFrom(file.number(), start, [&](std::string_view block) { content += block; })) return std::nullopt;
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
  const std::string name = path.filename().string();
  for (int attempt = 0; attempt < attempts; ++attempt) {
    const Descriptor folder = openOrMake(Folder::of(path));
    LineFile file(openOwnFile(folder, name, O_RDWR | O_APPEND | O_CREAT));
    const int descriptor = file.descriptor_.number();
    if (!file.descriptor_.isOpen()) return std::nullopt;
    file.heldAlone_ = waitForTurn(descriptor);
    if (!isStillIn(folder, name, descriptor)) continue;
    return closeToOthers(descriptor) ? std::optional(std::move(file)) : std::nullopt;
  }
  return std::nullopt;
}

std::size_t LineFile::count() const {
  std::size_t ends = endsInsideALine(descriptor_.number()) ? 1 : 0;
  readFrom(descriptor_.number(), 0, [&](std::string_view block) {
    for (auto end = block.find('\n'); end != std::string_view::npos; end = block.find('\n', end + 1)) ++ends;
  });
  return ends;
}

bool LineFile::append(std::string_view line) {
  const off_t before = sizeOf(descriptor_.number());
  std::string text = endsInsideALine(descriptor_.number()) ? "\n" : "";
  text.append(line).append("\n");
  if (writeWhole(descriptor_.number(), text)) return true;
  // Without the lock the partial line must stay: truncating could remove another process's line.
  [[maybe_unused]] const bool isUndone = heldAlone_ && ::ftruncate(descriptor_.number(), before) == 0;
  return false;
}

}  // namespace tilwin
