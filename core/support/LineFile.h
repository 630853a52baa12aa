#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tilwin {

/// One process's turn at a private file of lines that several processes may write. While it is held nobody
/// else who asks for a turn gets one.
class LineFile {
public:
  /// What is read of a file at most: its last bytes.
  static constexpr std::size_t mostRead = std::size_t{16} << 20;

  /// The content, or the newest part of a very long one from the begin of a line; nothing when there is no
  /// such file or it cannot be read. No turn is needed: it is whole unless somebody is writing a line just
  /// then.
  [[nodiscard]] static std::optional<std::string> read(const std::filesystem::path& path);
  /// The lines of a text without their ends; those with nothing in them are left out.
  [[nodiscard]] static std::vector<std::string_view> split(std::string_view content);

  /// Opens the file for a turn. A missing one is made, with its folder; an empty one gets permissions 0600
  /// before anything is in it. A process that holds its turn too long (a stopped one) is not waited for.
  /// Nothing when the file cannot be had.
  [[nodiscard]] static std::optional<LineFile> take(const std::filesystem::path& path);

  LineFile(LineFile&&) noexcept;
  LineFile& operator=(LineFile&&) noexcept;
  LineFile(const LineFile&) = delete;
  LineFile& operator=(const LineFile&) = delete;
  ~LineFile();

  /// False when the turn was not waited for: lines may be added, but the file must not be replaced.
  [[nodiscard]] bool isHeldAlone() const { return heldAlone_; }
  /// How many lines there are, one without an end included.
  [[nodiscard]] std::size_t count() const;
  /// Adds a line, on one of its own even after a line that was cut short. False when that failed; the file is
  /// then as it was, unless it is not held alone.
  bool append(std::string_view line);

private:
  LineFile(int descriptor, bool heldAlone) : descriptor_(descriptor), heldAlone_(heldAlone) {}

  int descriptor_;
  bool heldAlone_;
};

}  // namespace tilwin
