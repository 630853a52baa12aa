#include "core/support/Date.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>

namespace tilwin {
namespace {

using std::chrono::microseconds;
using std::chrono::seconds;

/// Whether the year fits four digits.
bool isWritable(std::chrono::year year) {
  return year >= std::chrono::year(0) && year <= std::chrono::year(9999);
}

/// Consumes a date-time from the front. After the first mismatch every further step fails too.
class Scanner {
public:
  explicit Scanner(std::string_view text) : rest_(text) {}

  int digits(std::size_t count) {
    const std::string_view field = rest_.substr(0, count);
    int value = 0;
    good_ = good_ && field.size() == count && std::all_of(field.begin(), field.end(), isDigit);
    if (!good_) return 0;
    std::from_chars(field.data(), field.data() + field.size(), value);
    rest_.remove_prefix(count);
    return value;
  }

  int digitsUpTo(int most) {
    const int value = digits(2);
    good_ = good_ && value <= most;
    return value;
  }

  /// Consumes and returns the next character if it is one of these, else fails and returns 0.
  char one(std::string_view of) {
    const char next = rest_.empty() ? '\0' : rest_.front();
    good_ = good_ && !rest_.empty() && of.find(next) != std::string_view::npos;
    if (!good_) return '\0';
    rest_.remove_prefix(1);
    return next;
  }

  /// An optional decimal point with digits; digits beyond microseconds are ignored.
  microseconds fraction() {
    if (!good_ || rest_.empty() || rest_.front() != '.') return {};
    rest_.remove_prefix(1);
    good_ = !rest_.empty() && isDigit(rest_.front());
    std::int64_t value = 0;
    for (std::int64_t unit = 100'000; !rest_.empty() && isDigit(rest_.front()); unit /= 10) {
      value += unit * (rest_.front() - '0');
      rest_.remove_prefix(1);
    }
    return microseconds(value);
  }

  [[nodiscard]] bool isDone() const { return good_ && rest_.empty(); }

private:
  static bool isDigit(char character) { return character >= '0' && character <= '9'; }

  std::string_view rest_;
  bool good_ = true;
};

std::chrono::year_month_day readDay(Scanner& scan) {
  const std::chrono::year year(scan.digits(4));
  scan.one("-");
  const std::chrono::month month(static_cast<unsigned>(scan.digits(2)));
  scan.one("-");
  return {year, month, std::chrono::day(static_cast<unsigned>(scan.digits(2)))};
}

/// "hh:mm": a time of day, or a UTC offset without its sign.
seconds readHoursAndMinutes(Scanner& scan) {
  const std::chrono::hours hours(scan.digitsUpTo(23));
  scan.one(":");
  return hours + std::chrono::minutes(scan.digitsUpTo(59));
}

seconds readOffset(Scanner& scan) {
  const char sign = scan.one("Zz+-");
  if (sign != '+' && sign != '-') return {};
  const seconds offset = readHoursAndMinutes(scan);
  return sign == '-' ? -offset : offset;
}

}  // namespace

std::optional<std::string> Iso8601::text(Date date) {
  const auto second = std::chrono::floor<seconds>(date);
  const auto day = std::chrono::floor<std::chrono::days>(second);
  const std::chrono::year_month_day calendar(day);
  const std::chrono::hh_mm_ss time(second - day);
  if (!isWritable(calendar.year())) return {};
  std::array<char, 32> buffer{};
  std::snprintf(buffer.data(), buffer.size(), "%04d-%02u-%02uT%02d:%02d:%02dZ",
                static_cast<int>(calendar.year()), static_cast<unsigned>(calendar.month()),
                static_cast<unsigned>(calendar.day()), static_cast<int>(time.hours().count()),
                static_cast<int>(time.minutes().count()), static_cast<int>(time.seconds().count()));
  return buffer.data();
}

std::optional<Date> Iso8601::parse(std::string_view text) {
  Scanner scan(text);
  const auto calendar = readDay(scan);
  scan.one("Tt ");
  const seconds minute = readHoursAndMinutes(scan);
  scan.one(":");
  const seconds second(scan.digitsUpTo(60));  // 60 is a leap second
  const microseconds fraction = scan.fraction();
  const seconds offset = readOffset(scan);
  if (!scan.isDone() || !calendar.ok()) return std::nullopt;
  const Date date = std::chrono::sys_days(calendar) + minute + second + fraction - offset;
  // Converting to UTC can leave the range of years that `text` can write.
  const std::chrono::year_month_day inUtc(std::chrono::floor<std::chrono::days>(date));
  return isWritable(inUtc.year()) ? std::optional(date) : std::nullopt;
}

}  // namespace tilwin
