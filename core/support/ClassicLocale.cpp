#include "core/support/ClassicLocale.h"

namespace tilwin {
namespace {

/// Made once and never freed, as any thread may be using it. If it cannot be made, threads keep theirs.
locale_t classic() {
  static const locale_t made = ::newlocale(LC_ALL_MASK, "C", nullptr);
  return made;
}

}  // namespace

ClassicLocale::ClassicLocale() : before_(::uselocale(classic())) {}

ClassicLocale::~ClassicLocale() { ::uselocale(before_); }

}  // namespace tilwin
