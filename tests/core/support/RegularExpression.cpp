#include "tests/core/support/RegularExpression.h"

#include <unicode/regex.h>
#include <unicode/unistr.h>

#include "core/support/Fatal.h"

namespace tilwin {
namespace {

icu::UnicodeString utf16(std::string_view text) {
  return icu::UnicodeString::fromUTF8(icu::StringPiece(text.data(), static_cast<int>(text.size())));
}

void expectSuccess(UErrorCode error) {
  if (U_FAILURE(error) != 0) fatal(u_errorName(error));
}

}  // namespace

struct RegularExpression::Pattern {
  [[nodiscard]] std::unique_ptr<icu::RegexMatcher> matcher(const icu::UnicodeString& subject) const {
    UErrorCode error = U_ZERO_ERROR;
    std::unique_ptr<icu::RegexMatcher> matcher(compiled->matcher(subject, error));
    expectSuccess(error);
    return matcher;
  }

  std::unique_ptr<icu::RegexPattern> compiled;
};

RegularExpression::RegularExpression(std::string_view pattern) {
  UErrorCode error = U_ZERO_ERROR;
  std::unique_ptr<icu::RegexPattern> compiled(icu::RegexPattern::compile(utf16(pattern), 0, error));
  expectSuccess(error);
  pattern_ = std::make_unique<Pattern>(Pattern{std::move(compiled)});
}

RegularExpression::~RegularExpression() = default;

std::string RegularExpression::replaceAll(std::string_view text, std::string_view with) const {
  UErrorCode error = U_ZERO_ERROR;
  const icu::UnicodeString subject = utf16(text);
  std::string result;
  pattern_->matcher(subject)->replaceAll(utf16(with), error).toUTF8String(result);
  expectSuccess(error);
  return result;
}

bool RegularExpression::finds(std::string_view text) const {
  const icu::UnicodeString subject = utf16(text);
  return pattern_->matcher(subject)->find() != 0;
}

}  // namespace tilwin
