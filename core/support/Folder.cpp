#include "core/support/Folder.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <system_error>

namespace tilwin {
namespace {

namespace fs = std::filesystem;

constexpr mode_t forOwnerAlone = 0700;

Descriptor openFolder(const fs::path& path, int flags) {
  return Descriptor(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC | flags));
}

bool isTrusted(uid_t owner) { return owner == ::geteuid() || owner == 0; }

bool isTrustedLink(const fs::path& path) {
  struct stat facts {};
  return ::lstat(path.c_str(), &facts) == 0 && S_ISLNK(facts.st_mode) && isTrusted(facts.st_uid);
}

}  // namespace

fs::path Folder::of(const fs::path& file) { return file.has_parent_path() ? file.parent_path() : "."; }

bool Folder::make(const fs::path& path) {
  std::error_code unknown;
  if (fs::is_directory(path, unknown)) return true;
  if (path.has_parent_path() && !make(path.parent_path())) return false;
  if (::mkdir(path.c_str(), forOwnerAlone) == 0) return true;
  return errno == EEXIST && fs::is_directory(path, unknown);
}

void Folder::makePrivate(const fs::path& path) {
  if (!make(path)) return;
  const Descriptor folder = openFolder(path, O_NOFOLLOW);
  struct stat facts {};
  if (!folder.isOpen() || ::fstat(folder.number(), &facts) != 0 || facts.st_uid != ::geteuid()) return;
  const mode_t closed = facts.st_mode & (07000 | forOwnerAlone);
  if (closed != (facts.st_mode & 07777)) ::fchmod(folder.number(), closed);
}

Descriptor Folder::open(const fs::path& path) { return openFolder(path, 0); }

Descriptor Folder::openOwn(const fs::path& path) {
  Descriptor folder = openFolder(path, isTrustedLink(path) ? 0 : O_NOFOLLOW);
  struct stat facts {};
  if (!folder.isOpen() || (::fstat(folder.number(), &facts) == 0 && isTrusted(facts.st_uid))) return folder;
  folder.close();
  errno = EACCES;
  return folder;
}

}  // namespace tilwin
