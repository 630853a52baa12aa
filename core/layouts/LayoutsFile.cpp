#include "core/layouts/LayoutsFile.h"

#include <utility>

namespace tilwin {

LayoutsFile::LayoutsFile(std::filesystem::path path) : path_(std::move(path)) {}

LayoutStore LayoutsFile::load() {
  const auto stamp = AtomicFile::stamp(path_);
  auto store = LayoutStore::read(path_);
  known_ = store ? stamp : std::nullopt;
  return std::move(store).value_or(LayoutStore{});
}

void LayoutsFile::write(const LayoutStore& store) {
  const auto found = AtomicFile::stamp(path_);
  const bool holdsSomething = found && found->size > 0;
  if (holdsSomething && found != known_) AtomicFile::keepCopy(path_);
  store.write(path_);
  known_ = AtomicFile::stamp(path_);
}

}  // namespace tilwin
