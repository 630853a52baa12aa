#include "core/layouts/LayoutsFile.h"

#include <string_view>
#include <system_error>
#include <utility>

#include "core/support/Folder.h"

namespace tilwin {
namespace fs = std::filesystem;

LayoutsFile::LayoutsFile(fs::path path, Surroundings surroundings)
    : path_(std::move(path)), surroundings_(surroundings) {}

bool LayoutsFile::isUsable() const {
  if (surroundings_ == Surroundings::ofUser) return true;
  Folder::makePrivate(Folder::of(path_));
  std::error_code unknown;
  return Folder::openOwn(Folder::of(path_)).isOpen() && !fs::is_symlink(fs::symlink_status(path_, unknown));
}

LayoutStore LayoutsFile::load() {
  if (!isUsable()) return {};
  const auto stamp = AtomicFile::stamp(path_);
  auto store = LayoutStore::read(path_);
  known_ = store ? stamp : std::nullopt;
  return std::move(store).value_or(LayoutStore{});
}

std::string LayoutsFile::keepCopy() const {
  const std::string_view as = LayoutStore::read(path_) ? "edited" : "unreadable";
  AtomicFile::keepCopy(path_, as);
  return path_.filename().string() + "." + std::string(as);
}

std::optional<std::string> LayoutsFile::write(const LayoutStore& store) {
  if (!isUsable()) {
    throw fs::filesystem_error("others may have put it there", path_,
                               std::make_error_code(std::errc::permission_denied));
  }
  constexpr int attempts = 10;
  std::optional<std::string> copy;
  for (int attempt = 0; attempt < attempts; ++attempt) {
    const auto found = AtomicFile::stamp(path_);
    const bool holdsSomething = found && found->size > 0;
    if (holdsSomething && found != known_) copy = keepCopy();
    if (const auto written = store.write(path_, found)) {
      known_ = written;
      return copy;
    }
  }
  throw fs::filesystem_error("edited all the time", path_,
                             std::make_error_code(std::errc::resource_unavailable_try_again));
}

}  // namespace tilwin
