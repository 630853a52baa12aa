#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace tilwin {

/// A point in time in UTC. Microseconds, as nanoseconds in 64 bits could not cover the years 0 to 9999.
using Date = std::chrono::sys_time<std::chrono::microseconds>;

/// Dates as text in files: ISO 8601, in the profile of RFC 3339.
struct Iso8601 {
  /// Whole seconds in UTC, such as "2026-03-01T09:30:00Z"; fractions are rounded down. Returns nothing for
  /// years outside 0 to 9999.
  [[nodiscard]] static std::optional<std::string> text(Date date);
  /// Parses an RFC 3339 date-time, with any UTC offset and an optional fraction. Returns nothing for any
  /// other text, or if the year in UTC is outside 0 to 9999.
  [[nodiscard]] static std::optional<Date> parse(std::string_view text);
};

}  // namespace tilwin
