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
    std::uint64_t number = 0;  ///< inode
    std::uint64_t size = 0;    ///< bytes
    std::int64_t changed = 0;  ///< last write in nanoseconds, on the clock of `std::filesystem`

    bool operator==(const Stamp&) const = default;
  };

  /// Returns nothing if the file does not exist or is not accessible.
  [[nodiscard]] static std::optional<Stamp> stamp(const std::filesystem::path& path);
  /// Returns the content, or nothing if the file is missing, unreadable, not a regular file, or larger than
  /// `limit` bytes.
  [[nodiscard]] static std::optional<std::string> read(const std::filesystem::path& path, std::size_t limit);

  /// Replaces the file atomically: a reader at any moment, also after a crash, sees either the whole old or
  /// the whole new content. Creates the folder if it is missing. An existing file keeps its permissions, a
  /// new one gets the default permissions (umask). If the path is a symbolic link, its target is replaced and
  /// the link stays. Throws `std::filesystem::filesystem_error` on failure and leaves the old file intact.
  static void replace(const std::filesystem::path& path, std::string_view content);
  /// Like `replace`, for private data: the file and its temporary draft are readable by the owner only.
  /// If the file no longer matches `old` just before the rename, it is left alone and this throws
  /// `std::errc::operation_canceled`.
  static void replacePrivately(const std::filesystem::path& path, std::string_view content, const Stamp& old);
  /// Removes the temporary drafts that killed processes left beside the file. Drafts that cannot be removed
  /// are skipped. The caller must make sure that no process is replacing the file at the same time.
  static void removeDrafts(const std::filesystem::path& path);

  /// Keeps the current file under a second name before it is replaced: "NAME.unreadable", or the first free
  /// name of "NAME.unreadable.2" and so on. Does nothing if one of these already has the same content.
  /// Throws `std::filesystem::filesystem_error` on failure.
  static void keepCopy(const std::filesystem::path& path);
};

}  // namespace tilwin
