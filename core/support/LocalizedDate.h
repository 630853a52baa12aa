#pragma once

#include <string>

#include "core/support/Date.h"

namespace tilwin {

/// Dates as shown to the user.
struct LocalizedDate {
  /// The day in the medium style of the user's locale (LC_ALL, LC_TIME or LANG, as in POSIX) and time zone
  /// (TZ or the system's), such as "Mar 1, 2026" or "01.03.2026". If ICU has no data for this, the day in UTC
  /// as "2026-03-01".
  [[nodiscard]] static std::string medium(Date date);
};

}  // namespace tilwin
