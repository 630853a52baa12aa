#include "core/support/LocalizedOrder.h"

#include <unicode/coll.h>
#include <unicode/locid.h>

#include <utility>

#include "core/support/IcuText.h"
#include "core/support/UnicodeText.h"
#include "core/support/UserLocale.h"

namespace tilwin {
namespace {

bool isPosix(const icu::Locale& locale) {
  const std::string_view language = locale.getLanguage();
  return language == "c" || language == "posix" || std::string_view(locale.getVariant()) == "POSIX";
}

std::unique_ptr<icu::Collator> collator(const icu::Locale& locale) {
  UErrorCode error = U_ZERO_ERROR;
  std::unique_ptr<icu::Collator> made(icu::Collator::createInstance(locale, error));
  if (U_FAILURE(error) != 0 || made == nullptr) return nullptr;
  made->setStrength(icu::Collator::SECONDARY);
  made->setAttribute(UCOL_NORMALIZATION_MODE, UCOL_ON, error);
  return U_FAILURE(error) != 0 ? nullptr : std::move(made);
}

}  // namespace

struct LocalizedOrder::Rules {
  explicit Rules(const icu::Locale& locale) {
    if (locale.isBogus() == 0 && !isPosix(locale)) collator = tilwin::collator(locale);
    if (!collator) collator = tilwin::collator(icu::Locale::getRoot());
  }

  std::unique_ptr<icu::Collator> collator;  ///< null if ICU lacks even the data of the root locale
};

LocalizedOrder::LocalizedOrder(std::unique_ptr<const Rules> rules) : rules_(std::move(rules)) {}
LocalizedOrder::LocalizedOrder() : LocalizedOrder(std::make_unique<Rules>(userLocale("LC_COLLATE"))) {}
LocalizedOrder::LocalizedOrder(const std::string& locale)
    : LocalizedOrder(std::make_unique<Rules>(icu::Locale::createCanonical(locale.c_str()))) {}
LocalizedOrder::~LocalizedOrder() = default;
LocalizedOrder::LocalizedOrder(LocalizedOrder&&) noexcept = default;
LocalizedOrder& LocalizedOrder::operator=(LocalizedOrder&&) noexcept = default;

bool LocalizedOrder::precedes(std::string_view first, std::string_view second) const {
  if (rules_->collator) {
    UErrorCode error = U_ZERO_ERROR;
    const UCollationResult result = rules_->collator->compareUTF8(icuPiece(first), icuPiece(second), error);
    if (U_SUCCESS(error) != 0) return result == UCOL_LESS;
  }
  return UnicodeText::caseKey(first) < UnicodeText::caseKey(second);
}

}  // namespace tilwin
