#include "tests/desktop/tour/Album.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>

#include "tests/desktop/harness/HarnessError.h"
#include "tests/desktop/harness/Screenshot.h"

namespace tilwin::desktop {

namespace {

constexpr Milliseconds pause{200};
constexpr int fewestColours = 16;

/// The picture once it differs from the one before and two in a row are equal; the last one if that takes too
/// long.
QImage restingPicture(Session& session, const std::optional<Rect>& area, const QImage& before) {
  auto& desktop = session.desktop();
  QImage picture;
  const auto deadline = Clock::now() + answerTimeout;
  while (Clock::now() < deadline) {
    QImage next = screenshot(desktop.connection(), area);
    if (next == picture && next != before) break;
    picture = std::move(next);
    desktop.waitUntil([] { return false; }, pause);
  }
  return picture;
}

}  // namespace

void Album::keep(Session& session, const std::string& name, const std::string& line,
                 const std::optional<Rect>& area) {
  if (isatty(STDERR_FILENO) != 0) std::fprintf(stderr, "\r\033[K%s", line.c_str());
  const QImage picture = restingPicture(session, area, last_);
  if (colourCount(picture, fewestColours) < fewestColours) throw HarnessError(name + ": nothing is drawn");
  if (picture == last_) throw HarnessError(name + ": the screen looks as before");
  const std::string file = name + ".png";
  if (!picture.save(QString::fromStdString((folder_ / file).string()), "PNG")) {
    throw HarnessError("cannot write " + (folder_ / file).string());
  }
  entries_.push_back({file, line});
  last_ = picture;
}

std::string Album::table() const {
  std::size_t widest = 0;
  for (const auto& entry : entries_) widest = std::max(widest, entry.file.size());
  std::string result;
  for (const auto& entry : entries_) {
    result += entry.file + std::string(widest - entry.file.size() + 2, ' ') + entry.line + "\n";
  }
  return result;
}

Rect united(const Rect& first, const Rect& second) {
  const double x = std::min(first.x, second.x);
  const double y = std::min(first.y, second.y);
  return {x, y, std::max(first.maxX(), second.maxX()) - x, std::max(first.maxY(), second.maxY()) - y};
}

Rect withMargin(const Rect& area, double margin) {
  return {area.x - margin, area.y - margin, area.width + 2 * margin, area.height + 2 * margin};
}

}  // namespace tilwin::desktop
