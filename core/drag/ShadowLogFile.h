#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "core/drag/ShadowRecord.h"
#include "core/support/AtomicFile.h"
#include "core/support/LineFile.h"
#include "core/support/SerialQueue.h"

namespace tilwin {

/// The drag log: a file of JSON lines, one record per line, readable by the user only (0600). It is trimmed
/// when it has more than `trimAbove` lines. Writes on its own thread; several processes may write the same
/// file. Failures are silent: a record that cannot be written is lost, a line that cannot be read is skipped.
/// What somebody else can have put in its place, such as a link, is neither read nor written (see
/// `LineFile`).
class ShadowLogFile final : public ShadowSink {
public:
  static constexpr std::int64_t keepNewest = 4000;  ///< lines kept by a trim
  static constexpr std::int64_t trimAbove = 5000;   ///< lines that do not yet cause a trim
  /// Lines written after a trim that failed until the next one is tried.
  static constexpr std::int64_t pauseAfterRefusal = trimAbove - keepNewest;

  /// The program's log: "Tilwin/shadow.jsonl" in the user's Application Support folder. Creates the folders
  /// if missing, and closes the log's own to others (0700). Nothing if `applicationSupport` is nothing.
  [[nodiscard]] static std::optional<std::filesystem::path> defaultURL(
      const std::optional<std::filesystem::path>& applicationSupport);

  explicit ShadowLogFile(std::filesystem::path url);

  /// Returns at once; the record is written later on the log's thread.
  void append(const ShadowRecord& record) override;
  /// Waits until all records appended so far are written.
  void drain();
  /// Waits like `drain`, then removes the log and any drafts left beside it. Of a link in its place, only the
  /// link.
  void erase();

  /// All valid records of a log, in file order; empty if the file cannot be read.
  [[nodiscard]] static std::vector<ShadowRecord> read(const std::filesystem::path& url);

private:
  void write(const std::string& line);
  void count(const LineFile& file);
  [[nodiscard]] bool trim() const;

  const std::filesystem::path url_;
  // These are used on the queue's thread only.
  std::int64_t lines_ = 0;  ///< number of lines in the file, as long as it matches `counted_`
  std::optional<AtomicFile::Stamp> counted_;  ///< the state of the file that `lines_` belongs to
  std::int64_t trimFrom_ = trimAbove;         ///< more lines cause a trim
  SerialQueue queue_;                         ///< last member: its destructor runs tasks that use the others
};

}  // namespace tilwin
