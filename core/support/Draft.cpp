#include "core/support/Draft.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "core/support/AtomicFile.h"

namespace tilwin {
namespace {

constexpr mode_t usual = 0666;  ///< the kernel applies the umask

/// Follows the file name in the name of a draft. Unusual, so that a copy made by a user is never taken for
/// one.
constexpr const char* draftMark = ".draft-";

[[noreturn]] void failToReplace(const Place& target, const char* what) {
  throw std::filesystem::filesystem_error(what, target.path, std::error_code(errno, std::generic_category()));
}

}  // namespace

/// Created with owner-only permissions and given its final ones afterwards: a descriptor opened by another
/// user in between could read everything written later.
Draft::Draft(const Place& target, std::optional<mode_t> permissions)
    : target_(target), file_(create(permissions ? ownerOnly : usual)) {
  if (!permissions || ::fchmod(file_.number(), *permissions) == 0) return;
  const int reason = errno;
  remove();
  errno = reason;
  failToReplace(target_, "cannot set permissions");
}

int Draft::create(mode_t permissions) {
  const std::string stem = target_.name() + draftMark + std::to_string(::getpid()) + "-";
  for (int attempt = 0;; ++attempt) {
    name_ = stem + std::to_string(attempt);
    constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC;
    const int number = ::openat(target_.folder.number(), name_.c_str(), flags, permissions);
    if (number >= 0) return number;
    if (errno != EEXIST) failToReplace(target_, "cannot create a draft");
  }
}

void Draft::write(std::string_view content) {
  while (!content.empty()) {
    const ssize_t written = ::write(file_.number(), content.data(), content.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) failToReplace(target_, "cannot write");
    content.remove_prefix(static_cast<std::size_t>(written));
  }
}

/// The content must be on disk before the rename, or a power failure could leave an empty file.
struct stat Draft::flush() {
  struct stat facts {};
  if (::fsync(file_.number()) != 0 || ::fstat(file_.number(), &facts) != 0 || !file_.close())
    failToReplace(target_, "cannot flush");
  return facts;
}

void Draft::moveIntoPlace() {
  const int folder = target_.folder.number();
  if (::renameat(folder, name_.c_str(), folder, target_.name().c_str()) != 0)
    failToReplace(target_, "cannot put in place");
  name_.clear();
}

bool Draft::isOf(const std::string& target, std::string_view name) {
  const std::string stem = target + draftMark;
  if (name.substr(0, stem.size()) != stem) return false;
  name.remove_prefix(stem.size());
  const auto areDigits = [](std::string_view text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
  };
  const std::size_t dash = name.find('-');
  return dash != std::string_view::npos && areDigits(name.substr(0, dash)) &&
         areDigits(name.substr(dash + 1));
}

void Draft::remove() const {
  if (!name_.empty()) ::unlinkat(target_.folder.number(), name_.c_str(), 0);
}

}  // namespace tilwin
