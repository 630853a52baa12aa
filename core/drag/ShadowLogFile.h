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

/// The drag log: a file of JSON lines, one record each, that only the user can read and that never grows
/// beyond `trimAbove` lines. All writing is done on a thread of its own; more than one process may write.
/// Failures are silent: a record that cannot be written is lost, a line that cannot be read is passed over.
class ShadowLogFile final : public ShadowSink {
public:
  static constexpr std::int64_t keepNewest = 4000;  ///< lines left by a trim
  static constexpr std::int64_t trimAbove = 5000;   ///< lines that may stand without one

  /// Where the program keeps its log: in a folder "Tilwin" of the user's Application Support folder, both
  /// made where missing. Nothing when there is no Application Support folder.
  [[nodiscard]] static std::optional<std::filesystem::path> defaultURL(
      const std::optional<std::filesystem::path>& applicationSupport);

  explicit ShadowLogFile(std::filesystem::path url);

  void append(const ShadowRecord& record) override;
  /// Waits until everything appended before is written.
  void drain();
  /// Waits, and removes the log with all that was appended before.
  void erase();

  /// All records of a log, in its order.
  [[nodiscard]] static std::vector<ShadowRecord> read(const std::filesystem::path& url);

private:
  void write(const std::string& line);
  void trim();

  const std::filesystem::path url_;
  // Both for the queue's tasks alone.
  std::optional<std::int64_t> lines_;         ///< how many the file has, if that is known
  std::optional<AtomicFile::Stamp> counted_;  ///< the state of the file that has them
  SerialQueue queue_;                         ///< last: its tasks use all of the above
};

}  // namespace tilwin
