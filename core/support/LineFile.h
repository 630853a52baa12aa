#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/support/Descriptor.h"

namespace tilwin {

/// A private text file of lines that several processes of its user may write. An object holds the exclusive
/// lock on the file (`flock`, advisory) from `take` until it is destroyed. Refused is what somebody else can
/// have put there: a link in the file's place, a file with a second name or another owner, a folder as in
/// `Folder::openOwn`.
class LineFile {
public:
  /// Bytes that `read` returns at most: the end of the file.
  static constexpr std::size_t mostRead = std::size_t{16} << 20;

  /// The content; of a file longer than `mostRead`, its end from the start of a line on. Nothing if the file
  /// does not exist, is refused or cannot be read. Takes no lock, so the last line may be incomplete if a
  /// process is writing it at that moment.
  [[nodiscard]] static std::optional<std::string> read(const std::filesystem::path& path);
  /// The lines without their line feeds, as views into `content`; empty lines are skipped.
  [[nodiscard]] static std::vector<std::string_view> split(std::string_view content);

  /// Opens the file and waits up to two seconds for the lock; if another process holds it longer (because it
  /// is stopped), continues without it. Creates the file and its folder if missing; the file has permissions
  /// 0600 before anything is written. Returns nothing if the file is refused, cannot be opened or keeps being
  /// replaced.
  [[nodiscard]] static std::optional<LineFile> take(const std::filesystem::path& path);

  /// False if waiting for the lock timed out: lines may be appended, but the file must not be replaced.
  [[nodiscard]] bool isHeldAlone() const { return heldAlone_; }
  /// The number of lines, including a last one without a line feed.
  [[nodiscard]] std::size_t count() const;
  /// Appends a line; if the last line is incomplete, ends it first. Returns false on
  /// failure and undoes a partial write, unless `isHeldAlone` is false.
  bool append(std::string_view line);

private:
  explicit LineFile(Descriptor descriptor) : descriptor_(std::move(descriptor)) {}

  Descriptor descriptor_;
  bool heldAlone_ = false;
};

}  // namespace tilwin
