#include "core/support/LocalizedDate.h"

#include <unicode/datefmt.h>
#include <unicode/timezone.h>
#include <unicode/unistr.h>

#include <memory>
#include <string_view>

#include "core/support/UserLocale.h"

namespace tilwin {

std::string LocalizedDate::medium(Date date) {
  const std::unique_ptr<icu::DateFormat> format(
      icu::DateFormat::createDateInstance(icu::DateFormat::kMedium, userLocale("LC_TIME")));
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
