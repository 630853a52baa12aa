#pragma once

#include <filesystem>
#include <optional>

#include "core/layouts/LayoutStore.h"
#include "core/support/AtomicFile.h"

namespace tilwin {

/// Where the program keeps its layouts. It knows which state of the file it has read or written last, and
/// never lets any other go without a copy: one that could not be read, or that somebody has edited meanwhile.
class LayoutsFile {
public:
  explicit LayoutsFile(std::filesystem::path path);

  /// An empty store when there is no file or it cannot be read.
  [[nodiscard]] LayoutStore load();
  /// Replaces the file in one step. What it held, unless it came from here, is kept beside it first, under
  /// its name and ".unreadable". Throws as `LayoutStore::write` does, and then the file stands as it was.
  void write(const LayoutStore& store);

private:
  std::filesystem::path path_;
  std::optional<AtomicFile::Stamp> known_;
};

}  // namespace tilwin
