#pragma once

#include <locale>  // has the locales of POSIX with it, for which macOS has a header of its own

namespace tilwin {

/// While this lives, C functions of its thread know no locale but "C": `strtod` expects a point in ASCII,
/// which in the user's locale may be another character, or one of several bytes. Other threads keep theirs.
/// Lives and ends on one thread. Source: POSIX, newlocale and uselocale.
class ClassicLocale {
public:
  ClassicLocale();
  ClassicLocale(const ClassicLocale&) = delete;
  ClassicLocale& operator=(const ClassicLocale&) = delete;
  ~ClassicLocale();

private:
  locale_t before_;
};

}  // namespace tilwin
