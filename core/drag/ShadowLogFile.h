#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "core/drag/ShadowRecord.h"
#include "core/support/AtomicFile.h"
#include "core/support/SerialQueue.h"

namespace tilwin {

/// The drag log: a file of JSON lines, one record per line, readable by the user only (0600). It is trimmed
/// when it has more than `trimAbove` lines. Writes on its own thread; several processes may write the same
/// file. Failures are silent: a record that cannot be written is lost, a line that cannot be read is skipped.
class ShadowLogFile final : public ShadowSink {
public:
  static constexpr std::int64_t keepNewest = 4000;  ///< lines kept by a trim
  static constexpr std::int64_t trimAbove = 5000;   ///< lines that do not yet cause a trim

  /// The program's log: "Tilwin/shadow.jsonl" in the user's Application Support folder. Creates the folders
  /// if missing. Nothing if `applicationSupport` is nothing.
  [[nodiscard]] static std::optional<std::filesystem::path> defaultURL(
      const std::optional<std::filesystem::path>& applicationSupport);

  explicit ShadowLogFile(std::filesystem::path url);

  /// Returns at once; the record is written later on the log's thread.
  void append(const ShadowRecord& record) override;
  /// Waits until all records appended so far are written.
  void drain();
  /// Waits like `drain`, then removes the log and any drafts left beside it.
  void erase();

  /// All valid records of a log, in file order; empty if the file cannot be read.
  [[nodiscard]] static std::vector<ShadowRecord> read(const std::filesystem::path& url);

private:
  void write(const std::string& line);
  void trim();

  const std::filesystem::path url_;
  // Both are used on the queue's thread only.
  std::optional<std::int64_t> lines_;         ///< number of lines in the file, if known
  std::optional<AtomicFile::Stamp> counted_;  ///< the state of the file that `lines_` belongs to
  SerialQueue queue_;                         ///< last member: its destructor runs tasks that use the others
};

}  // namespace tilwin
