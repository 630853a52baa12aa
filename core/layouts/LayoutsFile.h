#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "core/layouts/LayoutStore.h"
#include "core/support/AtomicFile.h"

namespace tilwin {

/// The program's layouts file. Remembers the state it last read or wrote, and makes a copy of any other
/// content before replacing it: one that could not be read, or was edited by someone else in the meantime,
/// even while the new content is being written. Only an edit between the last look and the rename is lost,
/// one system call after the other.
class LayoutsFile {
public:
  /// What lies around the file's folder: what is the user's, or also what others put there, as in the
  /// temporary folder. There, only a folder that is this user's alone is used, and no link in the file's
  /// place.
  enum class Surroundings { ofUser, shared };

  explicit LayoutsFile(std::filesystem::path path, Surroundings surroundings = Surroundings::ofUser);

  /// Returns an empty store if the file is missing, refused or cannot be read.
  [[nodiscard]] LayoutStore load();
  /// Replaces the file atomically. If its content is not what this object last read or wrote, keeps that
  /// first, as "NAME.edited" or, if it is no layouts file, as "NAME.unreadable" (see `AtomicFile::keepCopy`).
  /// Returns the name of that copy. Throws like `LayoutStore::write`, or if the file is refused or edited
  /// again and again, and then leaves the file intact.
  std::optional<std::string> write(const LayoutStore& store);

private:
  [[nodiscard]] bool isUsable() const;
  [[nodiscard]] std::string keepCopy() const;

  std::filesystem::path path_;
  Surroundings surroundings_;
  std::optional<AtomicFile::Stamp> known_;  ///< the state last read or written; none if it was unreadable
};

}  // namespace tilwin
