#include "core/drag/ShadowLogFile.h"

#include <algorithm>
#include <system_error>
#include <utility>
#include <variant>

#include "core/drag/ShadowRecordCoding.h"
#include "core/support/Folder.h"
#include "core/support/LineFile.h"

namespace tilwin {
namespace fs = std::filesystem;

std::optional<fs::path> ShadowLogFile::defaultURL(const std::optional<fs::path>& applicationSupport) {
  if (!applicationSupport) return std::nullopt;
  const fs::path folder = *applicationSupport / "Tilwin";
  Folder::makePrivate(folder);
  return folder / "shadow.jsonl";
}

ShadowLogFile::ShadowLogFile(fs::path url) : url_(std::move(url)), queue_("llc.ambergrove.tilwin.shadow") {}

void ShadowLogFile::append(const ShadowRecord& record) {
  queue_.async([this, record] {
    const auto line = encodeJson(record);
    if (const auto* text = std::get_if<std::string>(&line)) write(*text);
  });
}

void ShadowLogFile::drain() {
  queue_.sync([] {});
}

void ShadowLogFile::erase() {
  queue_.sync([this] {
    counted_.reset();
    std::error_code ignored;
    const bool isThere = fs::is_regular_file(fs::symlink_status(url_, ignored));
    // Locked, so that no other process replaces the log with a trimmed one at the same time.
    const auto file = isThere ? LineFile::take(url_) : std::nullopt;
    AtomicFile::removePrivately(url_);
  });
}

void ShadowLogFile::write(const std::string& line) {
  auto file = LineFile::take(url_);
  if (!file) return;
  if (file->isHeldAlone()) count(*file);
  if (!file->append(line)) return;
  ++lines_;
  // Without the lock others may have written meanwhile.
  counted_ = file->isHeldAlone() ? AtomicFile::stamp(url_) : std::nullopt;
  // After a trim the stamp is that of the replaced file, to which others may still have added.
  if (counted_ && lines_ > trimFrom_) trimFrom_ = trim() ? trimAbove : lines_ + pauseAfterRefusal;
}

void ShadowLogFile::count(const LineFile& file) {
  const auto stamp = AtomicFile::stamp(url_);
  if (stamp && stamp == counted_) return;
  lines_ = static_cast<std::int64_t>(file.count());
  counted_ = stamp;
  if (lines_ <= trimAbove) trimFrom_ = trimAbove;
}

bool ShadowLogFile::trim() const {
  const auto old = AtomicFile::stamp(url_);
  const auto content = LineFile::read(url_);
  if (!old || !content) return false;
  const auto lines = LineFile::split(*content);
  const auto kept = std::min(static_cast<std::int64_t>(lines.size()), keepNewest);
  std::string newest;
  newest.reserve(content->size());
  for (auto line = lines.end() - kept; line != lines.end(); ++line) newest.append(*line).append("\n");
  try {
    AtomicFile::removeDrafts(url_);
    // Refused if the log has changed: if this process was suspended here, others may have written without the
    // lock, and their lines must not be lost.
    return AtomicFile::replacePrivately(url_, newest, *old);
  } catch (const fs::filesystem_error&) {
    return false;
  }
}

std::vector<ShadowRecord> ShadowLogFile::read(const fs::path& url) {
  const std::string content = LineFile::read(url).value_or("");
  const auto lines = LineFile::split(content);
  std::vector<ShadowRecord> records;
  records.reserve(lines.size());
  for (const std::string_view line : lines) {
    auto record = decodeJson<ShadowRecord>(line);
    if (auto* whole = std::get_if<ShadowRecord>(&record)) records.push_back(std::move(*whole));
  }
  return records;
}

}  // namespace tilwin
