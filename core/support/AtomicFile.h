#pragma once

#include <sys/types.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace tilwin {

/// The permissions of a file that nobody but its owner may read.
inline constexpr mode_t ownerOnly = 0600;

/// Files that are read and replaced as a whole.
struct AtomicFile {
  /// Tells one state of a file from another without reading it.
  struct Stamp {
    std::uint64_t device = 0;
    std::uint64_t number = 0;
    std::uint64_t size = 0;
    std::int64_t changed = 0;  ///< in nanoseconds, on the file system's clock

    bool operator==(const Stamp&) const = default;
  };

  /// Nothing when there is no such file.
  [[nodiscard]] static std::optional<Stamp> stamp(const std::filesystem::path& path);
  /// The content, or nothing when there is no such file, it cannot be read, or it is larger than `limit`
  /// bytes.
  [[nodiscard]] static std::optional<std::string> read(const std::filesystem::path& path, std::size_t limit);

  /// Puts `content` in place of the file in one step: whoever reads, and whatever is found after a crash at
  /// any moment, is the old content or the new, whole. The folder is made first where it is missing. A file
  /// that is there keeps its permissions, a new one gets the user's usual ones; a symbolic link stays and
  /// what it points at is replaced. Throws `std::filesystem::filesystem_error`; the old file is then intact.
  static void replace(const std::filesystem::path& path, std::string_view content);
  /// The same for what is nobody else's business: the file is the user's alone, as is the draft it is made
  /// from. If the file is no longer in the state `old` when the new content is ready to take its place, it is
  /// left as it is, and this throws `std::errc::operation_canceled`.
  static void replacePrivately(const std::filesystem::path& path, std::string_view content, const Stamp& old);
  /// Removes what processes that were ended while they replaced the file have left beside it, as far as it
  /// can be removed. Nobody may be replacing it meanwhile.
  static void removeDrafts(const std::filesystem::path& path);

  /// Gives what stands at `path` a second name beside it before somebody replaces it: "NAME.unreadable", or
  /// the first of "NAME.unreadable.2" and so on that is not taken. The same content is kept only once. Throws
  /// `std::filesystem::filesystem_error`.
  static void keepCopy(const std::filesystem::path& path);
};

}  // namespace tilwin
