#pragma once

#include <QImage>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "core/geometry/Rect.h"
#include "tests/desktop/harness/Session.h"

namespace tilwin::desktop {

/// The pictures of what the program shows of itself, each with a name and a line about it.
class Album {
public:
  explicit Album(std::filesystem::path folder) : folder_(std::move(folder)) {}

  /// Saves the screen, or the part within `area`, once it stays the same for a moment. Throws HarnessError if
  /// it is blank or equals the picture before, as the screen did not follow then.
  void keep(Session& session, const std::string& name, const std::string& line,
            const std::optional<Rect>& area = std::nullopt);

  /// The file names and lines, in columns.
  [[nodiscard]] std::string table() const;
  [[nodiscard]] std::size_t size() const { return entries_.size(); }

private:
  struct Entry {
    std::string file;
    std::string line;
  };

  std::filesystem::path folder_;
  std::vector<Entry> entries_;
  QImage last_;
};

/// The smallest rectangle that contains both.
[[nodiscard]] Rect united(const Rect& first, const Rect& second);
[[nodiscard]] Rect withMargin(const Rect& area, double margin);

}  // namespace tilwin::desktop
