#pragma once

#include <string>

#include "core/support/Date.h"

namespace tilwin {

/// Days as people read them.
struct LocalizedDate {
  /// The day in the medium style of the user's locale (that of LC_ALL, LC_TIME or LANG) and time zone (TZ or
  /// the machine's), such as "Mar 1, 2026" or "01.03.2026". The ISO day should there be no such style.
  [[nodiscard]] static std::string medium(Date date);
};

}  // namespace tilwin
