#include "core/support/AtomicFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <ctime>
#include <fstream>
#include <functional>
#include <system_error>
#include <utility>

#include "core/support/Descriptor.h"
#include "core/support/Draft.h"
#include "core/support/Folder.h"

namespace tilwin {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(const char* what, const fs::path& path) {
  throw fs::filesystem_error(what, path, std::error_code(errno, std::generic_category()));
}

fs::path behindLinks(const fs::path& path) {
  std::error_code ignored;
  const fs::path target = fs::canonical(path, ignored);
  return target.empty() ? path : target;
}

/// Throws if there is no such folder.
Place placeIn(Descriptor folder, const fs::path& path) {
  if (!folder.isOpen()) fail("cannot open the folder of", path);
  return {std::move(folder), path};
}

/// The file that the path leads to, in a folder that is made if it is missing.
Place placeBehindLinks(const fs::path& path) {
  if (!Folder::make(Folder::of(path))) fail("cannot make the folder of", path);
  const fs::path target = behindLinks(path);
  return placeIn(Folder::open(Folder::of(target)), target);
}

/// POSIX and macOS have different names for the time of the last write.
template <typename Facts>
timespec lastWrite(const Facts& facts) {
  if constexpr (requires { facts.st_mtim; }) {
    return facts.st_mtim;
  } else {
    return facts.st_mtimespec;
  }
}

AtomicFile::Stamp stampOf(const struct stat& facts) {
  const timespec changed = lastWrite(facts);
  // Signed, or narrower, on some systems.
  return {static_cast<std::uint64_t>(facts.st_dev), static_cast<std::uint64_t>(facts.st_ino),
          static_cast<std::uint64_t>(facts.st_size), changed.tv_sec, changed.tv_nsec};
}

std::optional<struct stat> factsAt(const Place& place) {
  struct stat facts {};
  if (::fstatat(place.folder.number(), place.name().c_str(), &facts, 0) != 0) return std::nullopt;
  return facts;
}

std::optional<AtomicFile::Stamp> stampAt(const Place& place) {
  const auto facts = factsAt(place);
  return facts ? std::optional(stampOf(*facts)) : std::nullopt;
}

/// Returns nothing if the replacement was not allowed when all but the rename was done.
std::optional<AtomicFile::Stamp> replaceAt(
    const Place& place, std::string_view content, std::optional<mode_t> permissions,
    const std::function<bool()>& isAllowed = [] { return true; }) {
  Draft draft(place, permissions);
  draft.write(content);
  const auto written = stampOf(draft.flush());
  if (!isAllowed()) return std::nullopt;
  draft.moveIntoPlace();
  // Makes the rename survive a power failure. Errors are ignored, as some file systems do not support this.
  ::fsync(place.folder.number());
  return written;
}

std::optional<mode_t> permissionsAt(const Place& place) {
  const auto facts = factsAt(place);
  return facts ? std::optional<mode_t>(facts->st_mode & 07777) : std::nullopt;
}

void removeDraftsAt(const Place& place) {
  std::error_code refusal;
  for (fs::directory_iterator entry(Folder::of(place.path), refusal);
       !refusal && entry != fs::directory_iterator(); entry.increment(refusal)) {
    const std::string name = entry->path().filename().string();
    if (Draft::isOf(place.name(), name)) ::unlinkat(place.folder.number(), name.c_str(), 0);
  }
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

void copyAnew(const fs::path& original, const fs::path& copy) {
  fs::remove(copy);
  std::error_code refusal;
  fs::create_hard_link(original, copy, refusal);
  // Not every file system supports hard links.
  if (refusal) fs::copy_file(original, copy);
}

}  // namespace

std::optional<AtomicFile::Stamp> AtomicFile::stamp(const fs::path& path) {
  struct stat facts {};
  return ::stat(path.c_str(), &facts) == 0 ? std::optional(stampOf(facts)) : std::nullopt;
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
  const Place place = placeBehindLinks(path);
  replaceAt(place, content, permissionsAt(place));
}

std::optional<AtomicFile::Stamp> AtomicFile::replaceUnchanged(const fs::path& path, std::string_view content,
                                                              const std::optional<Stamp>& old) {
  const Place place = placeBehindLinks(path);
  return replaceAt(place, content, permissionsAt(place), [&] { return stampAt(place) == old; });
}

bool AtomicFile::replacePrivately(const fs::path& path, std::string_view content, const Stamp& old) {
  const Place place = placeIn(Folder::openOwn(Folder::of(path)), path);
  return replaceAt(place, content, ownerOnly, [&] { return stampAt(place) == old; }).has_value();
}

void AtomicFile::removeDrafts(const fs::path& path) {
  const Place place{Folder::openOwn(Folder::of(path)), path};
  if (place.folder.isOpen()) removeDraftsAt(place);
}

void AtomicFile::removePrivately(const fs::path& path) {
  const Place place{Folder::openOwn(Folder::of(path)), path};
  if (!place.folder.isOpen()) return;
  removeDraftsAt(place);
  ::unlinkat(place.folder.number(), place.name().c_str(), 0);
}

void AtomicFile::keepCopy(const fs::path& path, std::string_view as) {
  const fs::path original = behindLinks(path);
  const std::string first = path.string() + "." + std::string(as);
  const auto copy = [&](int number) -> fs::path {
    return number == 1 ? first : first + "." + std::to_string(number);
  };
  for (int number = 1; number <= mostCopies; ++number) {
    if (isSameContent(original, copy(number))) return;
  }
  const fs::path fresh = first + ".new";
  copyAnew(original, fresh);
  int last = 1;
  while (last < mostCopies && fs::exists(fs::symlink_status(copy(last)))) ++last;
  for (; last > 1; --last) fs::rename(copy(last - 1), copy(last));
  fs::rename(fresh, first);
}

}  // namespace tilwin
