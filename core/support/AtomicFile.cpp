#include "core/support/AtomicFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <fstream>
#include <functional>
#include <system_error>
#include <utility>

namespace tilwin {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(const char* what, const fs::path& path) {
  throw fs::filesystem_error(what, path, std::error_code(errno, std::generic_category()));
}

constexpr mode_t usual = 0666;  ///< the kernel applies the umask

/// Follows the file name in the name of a draft. Unusual, so that `removeDrafts` never deletes a copy made by
/// a user.
constexpr const char* draftMark = ".draft-";

class Descriptor {
public:
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() { close(); }

  [[nodiscard]] bool isOpen() const { return number_ >= 0; }
  [[nodiscard]] int number() const { return number_; }
  bool close() { return number_ < 0 || ::close(std::exchange(number_, -1)) == 0; }

private:
  int number_;
};

/// A temporary file in the target's folder. The destructor removes it unless it was moved into place.
class Draft {
public:
  /// Created with owner-only permissions and given its final ones afterwards: a descriptor opened by another
  /// user in between could read everything written later.
  Draft(fs::path target, std::optional<mode_t> permissions)
      : path_(std::move(target)), file_(create(permissions ? ownerOnly : usual)) {
    if (permissions && ::fchmod(file_.number(), *permissions) != 0) abandon("cannot set permissions");
  }
  Draft(const Draft&) = delete;
  Draft& operator=(const Draft&) = delete;
  ~Draft() {
    if (!path_.empty()) ::unlink(path_.c_str());
  }

  void write(std::string_view content) {
    while (!content.empty()) {
      const ssize_t written = ::write(file_.number(), content.data(), content.size());
      if (written < 0 && errno == EINTR) continue;
      if (written < 0) fail("cannot write", path_);
      content.remove_prefix(static_cast<std::size_t>(written));
    }
  }

  /// The content must be on disk before the rename, or a power failure could leave an empty file.
  void flush() {
    if (::fsync(file_.number()) != 0 || !file_.close()) fail("cannot flush", path_);
  }

  void moveTo(const fs::path& target) {
    if (::rename(path_.c_str(), target.c_str()) != 0) fail("cannot put in place", target);
    path_.clear();
  }

private:
  [[noreturn]] void abandon(const char* what) {
    const int reason = errno;
    ::unlink(path_.c_str());
    errno = reason;
    fail(what, path_);
  }

  int create(mode_t permissions) {
    const std::string stem = path_.string() + draftMark + std::to_string(::getpid()) + "-";
    for (int attempt = 0;; ++attempt) {
      path_ = stem + std::to_string(attempt);
      const int number = ::open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, permissions);
      if (number >= 0) return number;
      if (errno != EEXIST) fail("cannot create", path_);
    }
  }

  fs::path path_;
  Descriptor file_;
};

/// Makes the rename survive a power failure. Errors are ignored, as some file systems do not support this.
void syncFolder(const fs::path& folder) {
  const Descriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (descriptor.isOpen()) ::fsync(descriptor.number());
}

fs::path behindLinks(const fs::path& path) {
  std::error_code ignored;
  const fs::path target = fs::canonical(path, ignored);
  return target.empty() ? path : target;
}

fs::path folderOf(const fs::path& file) { return file.has_parent_path() ? file.parent_path() : "."; }

std::optional<mode_t> permissionsOf(const fs::path& path) {
  struct stat facts {};
  if (::stat(path.c_str(), &facts) != 0) return std::nullopt;
  return facts.st_mode & 07777;
}

using Check = std::function<void(const fs::path& target)>;

void replaceWith(
    const fs::path& path, std::string_view content, std::optional<mode_t> permissions,
    const Check& check = [](const fs::path&) {}) {
  if (path.has_parent_path()) fs::create_directories(path.parent_path());
  const fs::path target = behindLinks(path);
  Draft draft(target, permissions);
  draft.write(content);
  draft.flush();
  check(target);
  draft.moveTo(target);
  syncFolder(folderOf(target));
}

/// Whether `Draft` could have created this name: target, mark, process id, number.
bool isDraftOf(const fs::path& target, std::string_view name) {
  const std::string stem = target.filename().string() + draftMark;
  if (name.substr(0, stem.size()) != stem) return false;
  name.remove_prefix(stem.size());
  const auto areDigits = [](std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
  };
  const std::size_t dash = name.find('-');
  return dash != std::string_view::npos && areDigits(name.substr(0, dash)) &&
         areDigits(name.substr(dash + 1));
}

bool isSameContent(const fs::path& first, const fs::path& second) {
  std::error_code ignored;
  if (fs::equivalent(first, second, ignored)) return true;
  if (fs::file_size(first, ignored) != fs::file_size(second, ignored)) return false;
  std::ifstream one(first, std::ios::binary);
  std::ifstream other(second, std::ios::binary);
  return one && other &&
         std::equal(std::istreambuf_iterator<char>(one), {}, std::istreambuf_iterator<char>(other), {});
}

}  // namespace

std::optional<AtomicFile::Stamp> AtomicFile::stamp(const fs::path& path) {
  struct stat facts {};
  if (::stat(path.c_str(), &facts) != 0) return std::nullopt;
  // Not from `facts`: the name of that field in `struct stat` differs between systems.
  std::error_code unknown;
  const auto changed = fs::last_write_time(path, unknown).time_since_epoch();
  // Signed, or narrower, on some systems.
  return Stamp{static_cast<std::uint64_t>(facts.st_dev), static_cast<std::uint64_t>(facts.st_ino),
               static_cast<std::uint64_t>(facts.st_size),
               std::chrono::duration_cast<std::chrono::nanoseconds>(changed).count()};
}

std::optional<std::string> AtomicFile::read(const fs::path& path, std::size_t limit) {
  // Without O_NONBLOCK, opening a named pipe at this path would block.
  const Descriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  struct stat facts {};
  if (!file.isOpen() || ::fstat(file.number(), &facts) != 0 || !S_ISREG(facts.st_mode)) return std::nullopt;
  std::string content;
  std::array<char, 65536> block{};
  while (content.size() <= limit) {
    const ssize_t count = ::read(file.number(), block.data(), block.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return std::nullopt;
    if (count == 0) return content;
    content.append(block.data(), static_cast<std::size_t>(count));
  }
  return std::nullopt;
}

void AtomicFile::replace(const fs::path& path, std::string_view content) {
  replaceWith(path, content, permissionsOf(path));
}

void AtomicFile::replacePrivately(const fs::path& path, std::string_view content, const Stamp& old) {
  replaceWith(path, content, ownerOnly, [&](const fs::path& target) {
    if (stamp(target) == old) return;
    throw fs::filesystem_error("changed meanwhile", path,
                               std::make_error_code(std::errc::operation_canceled));
  });
}

void AtomicFile::removeDrafts(const fs::path& path) {
  const fs::path target = behindLinks(path);
  std::error_code refusal;
  for (fs::directory_iterator entry(folderOf(target), refusal); !refusal && entry != fs::directory_iterator();
       entry.increment(refusal)) {
    if (isDraftOf(target, entry->path().filename().string())) ::unlink(entry->path().c_str());
  }
}

void AtomicFile::keepCopy(const fs::path& path) {
  const fs::path original = behindLinks(path);
  const std::string name = path.string() + ".unreadable";
  for (int number = 1;; ++number) {
    const fs::path copy = number == 1 ? name : name + "." + std::to_string(number);
    std::error_code refusal;
    fs::create_hard_link(original, copy, refusal);
    if (!refusal) return;
    if (!fs::exists(fs::symlink_status(copy))) {
      // Not every file system supports hard links.
      fs::copy_file(original, copy);
      return;
    }
    if (isSameContent(original, copy)) return;
  }
}

}  // namespace tilwin
