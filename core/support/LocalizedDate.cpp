#include "core/support/LocalizedDate.h"

#include <unicode/datefmt.h>
#include <unicode/locid.h>
#include <unicode/timezone.h>
#include <unicode/unistr.h>

#include <array>
#include <cstdlib>
#include <memory>
#include <string_view>

namespace tilwin {
namespace {

/// ICU's default locale follows LC_MESSAGES; dates have a locale of their own, LC_TIME.
icu::Locale localeOfDates() {
  for (const char* variable : std::to_array<const char*>({"LC_ALL", "LC_TIME", "LANG"})) {
    const char* const value = std::getenv(variable);
    if (value == nullptr || *value == '\0') continue;
    const std::string_view name(value);
    const bool isPosix = name == "POSIX" || name == "C" || name.substr(0, 2) == "C.";
    return icu::Locale::createCanonical(isPosix ? "en_US_POSIX" : value);
  }
  return icu::Locale::getDefault();
}

}  // namespace

std::string LocalizedDate::medium(Date date) {
  const std::unique_ptr<icu::DateFormat> format(
      icu::DateFormat::createDateInstance(icu::DateFormat::kMedium, localeOfDates()));
  if (!format) return Iso8601::text(date).value_or("").substr(0, std::string_view("2026-03-01").size());
  // ICU caches its default time zone when first asked; the system's may have changed since.
  format->adoptTimeZone(icu::TimeZone::detectHostTimeZone());
  const auto milliseconds = std::chrono::floor<std::chrono::milliseconds>(date.time_since_epoch()).count();
  icu::UnicodeString text;
  format->format(static_cast<UDate>(milliseconds), text);
  std::string result;
  return text.toUTF8String(result);
}

}  // namespace tilwin
