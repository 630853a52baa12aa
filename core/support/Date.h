#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace tilwin {

/// A moment in UTC. Microseconds, so that the whole range of written years fits.
using Date = std::chrono::sys_time<std::chrono::microseconds>;

/// Moments as text in files.
struct Iso8601 {
  /// Whole seconds in UTC, such as "2026-03-01T09:30:00Z"; a fraction is cut off. Nothing for years that four
  /// digits cannot hold.
  [[nodiscard]] static std::optional<std::string> text(Date date);
  /// Reads a date-time of RFC 3339, with any offset and with a fraction or without; nothing for any other
  /// text.
  [[nodiscard]] static std::optional<Date> parse(std::string_view text);
};

}  // namespace tilwin
