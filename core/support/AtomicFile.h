#pragma once

#include <sys/types.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace tilwin {

/// File permissions: only the owner may read and write.
inline constexpr mode_t ownerOnly = 0600;

/// Reads and replaces whole files, so that readers and crashes never see a half-written one.
struct AtomicFile {
  /// Identifies one state of a file without reading it: if two stamps differ, the file was changed or
  /// replaced between them.
  struct Stamp {
    std::uint64_t device = 0;
    std::uint64_t number = 0;      ///< inode
    std::uint64_t size = 0;        ///< bytes
    std::int64_t seconds = 0;      ///< last write, since 1970
    std::int64_t nanoseconds = 0;  ///< of that second

    bool operator==(const Stamp&) const = default;
  };

  /// Returns nothing if the file does not exist or is not accessible.
  [[nodiscard]] static std::optional<Stamp> stamp(const std::filesystem::path& path);
  /// Returns the content, or nothing if the file is missing, unreadable, not a regular file, or larger than
  /// `limit` bytes.
  [[nodiscard]] static std::optional<std::string> read(const std::filesystem::path& path, std::size_t limit);

  /// Replaces the file atomically: a reader at any moment, also after a crash, sees either the whole old or
  /// the whole new content. Creates the folder if it is missing (see `Folder::make`). An existing file keeps
  /// its permissions, a new one gets the default permissions (umask). If the path is a symbolic link, its
  /// target is replaced and the link stays. Throws `std::filesystem::filesystem_error` on failure and leaves
  /// the old file intact.
  static void replace(const std::filesystem::path& path, std::string_view content);
  /// Like `replace`, but if the file no longer matches `old` just before the rename (nothing: no file), it is
  /// left alone and nothing is returned. Otherwise returns the stamp of what was written.
  [[nodiscard]] static std::optional<Stamp> replaceUnchanged(const std::filesystem::path& path,
                                                             std::string_view content,
                                                             const std::optional<Stamp>& old);
  /// Like `replaceUnchanged`, for data that is the user's alone: the file and its temporary draft are
  /// readable by the owner only, no link is followed, and the folder must be as in `Folder::openOwn`. Returns
  /// whether the file was replaced.
  [[nodiscard]] static bool replacePrivately(const std::filesystem::path& path, std::string_view content,
                                             const Stamp& old);
  /// Removes the temporary drafts that killed processes left beside a file written by `replacePrivately`.
  /// What cannot be removed is skipped. The caller must make sure that no process is replacing the file at
  /// the same time.
  static void removeDrafts(const std::filesystem::path& path);
  /// Like `removeDrafts`, and removes the file too; of a link in its place, only the link.
  static void removePrivately(const std::filesystem::path& path);

  /// The number of copies that `keepCopy` keeps of a file under one name.
  static constexpr int mostCopies = 3;
  /// Keeps the current file under a second name before it is replaced: "NAME.AS", while earlier copies move
  /// on to "NAME.AS.2" and so on; the oldest of `mostCopies` is dropped. Does nothing if one of these already
  /// has the same content. Throws `std::filesystem::filesystem_error` on failure.
  static void keepCopy(const std::filesystem::path& path, std::string_view as);
};

}  // namespace tilwin
