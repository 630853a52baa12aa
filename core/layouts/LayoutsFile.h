#pragma once

#include <filesystem>
#include <optional>

#include "core/layouts/LayoutStore.h"
#include "core/support/AtomicFile.h"

namespace tilwin {

/// The program's layouts file. Remembers the state it last read or wrote, and makes a copy of any other
/// content before replacing it: one that could not be read, or was edited by someone else in the meantime.
class LayoutsFile {
public:
  explicit LayoutsFile(std::filesystem::path path);

  /// Returns an empty store if the file is missing or cannot be read.
  [[nodiscard]] LayoutStore load();
  /// Replaces the file atomically. If its content is not what this object last read or wrote, keeps that as
  /// "NAME.unreadable" first (see `AtomicFile::keepCopy`). Throws like `LayoutStore::write` and then leaves
  /// the file intact.
  void write(const LayoutStore& store);

private:
  std::filesystem::path path_;
  std::optional<AtomicFile::Stamp> known_;  ///< the state last read or written; none if it was unreadable
};

}  // namespace tilwin
