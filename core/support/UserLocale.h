#pragma once

#include <unicode/locid.h>

namespace tilwin {

/// The user's locale for one category: that of LC_ALL, of the category's own variable, such as "LC_TIME", or
/// of LANG, the first that is set and not empty (POSIX, Internationalization Variables). "C" and "POSIX"
/// become "en_US_POSIX". If none is set, ICU's default locale, which otherwise follows LC_MESSAGES whatever
/// it is for.
[[nodiscard]] icu::Locale userLocale(const char* category);

}  // namespace tilwin
