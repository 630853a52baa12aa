#pragma once

#include <filesystem>

#include "core/support/Descriptor.h"

namespace tilwin {

/// Folders as descriptors: what is then done by name (`openat` and its like) is done in that very folder,
/// even if another one takes its place meanwhile.
struct Folder {
  /// The folder that a file lies in; "." for a name without one.
  [[nodiscard]] static std::filesystem::path of(const std::filesystem::path& file);

  /// Makes the folder and its missing parents, for the user alone (0700) whatever the umask (XDG Base
  /// Directory Specification). Leaves one that is there as it is. Returns false, with `errno`, on failure.
  static bool make(const std::filesystem::path& path);
  /// Makes the folder, or takes all permissions from others if it is there and the user's own. Does not
  /// follow a link in its place. Failures are silent.
  static void makePrivate(const std::filesystem::path& path);

  /// Not open, with `errno`, on failure.
  [[nodiscard]] static Descriptor open(const std::filesystem::path& path);
  /// Like `open`, but refuses what another user can have put there: the folder must belong to this user or to
  /// root, and so must a link in its place.
  [[nodiscard]] static Descriptor openOwn(const std::filesystem::path& path);
};

}  // namespace tilwin
