#include "core/support/UnicodeText.h"

#include <unicode/brkiter.h>
#include <unicode/locid.h>
#include <unicode/normalizer2.h>
#include <unicode/regex.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>

#include "core/support/Fatal.h"
#include "core/support/IcuText.h"
#include "core/support/Utf8.h"

namespace tilwin {
namespace {

constexpr char asciiLower(char byte) {
  return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte + ('a' - 'A')) : byte;
}

std::string asciiLowerCased(std::string_view text) {
  std::string lower(text);
  for (char& byte : lower) byte = asciiLower(byte);
  return lower;
}

icu::UnicodeString utf16(std::string_view text) { return icu::UnicodeString::fromUTF8(icuPiece(text)); }

std::string utf8(const icu::UnicodeString& text) {
  std::string bytes;
  bytes.reserve(static_cast<std::size_t>(text.length()));
  return text.toUTF8String(bytes);
}

using Form = const icu::Normalizer2*(UErrorCode&);

/// Returns the text unchanged if ICU fails; its data is part of the library, so this does not happen
/// normally.
icu::UnicodeString normalized(const icu::UnicodeString& text, Form form) {
  UErrorCode error = U_ZERO_ERROR;
  const icu::Normalizer2* const normalizer = form(error);
  if (U_FAILURE(error) != 0) return text;
  icu::UnicodeString result = normalizer->normalize(text, error);
  return U_FAILURE(error) != 0 ? text : result;
}

icu::UnicodeString decomposedForm(const icu::UnicodeString& text) {
  return normalized(text, icu::Normalizer2::getNFDInstance);
}

icu::UnicodeString composedForm(const icu::UnicodeString& text) {
  return normalized(text, icu::Normalizer2::getNFCInstance);
}

bool isDiacriticalMark(UChar32 character) {
  return u_charType(character) == U_NON_SPACING_MARK && u_hasBinaryProperty(character, UCHAR_DIACRITIC) != 0;
}

icu::UnicodeString withoutDiacritics(const icu::UnicodeString& text) {
  icu::UnicodeString kept;
  for (std::int32_t index = 0; index < text.length(); index = text.moveIndex32(index, 1)) {
    const UChar32 character = text.char32At(index);
    if (!isDiacriticalMark(character)) kept.append(character);
  }
  return kept;
}

bool isWhiteSpace(char32_t character) {
  if (character < 0x80) return character == ' ' || (character >= '\t' && character <= '\r');
  return u_isUWhiteSpace(static_cast<UChar32>(character)) != 0;
}

}  // namespace

std::string UnicodeText::caseKey(std::string_view text) {
  if (Utf8::isAscii(text)) return asciiLowerCased(text);
  return utf8(decomposedForm(decomposedForm(utf16(text)).foldCase()));
}

bool UnicodeText::equalIgnoringCase(std::string_view first, std::string_view second) {
  if (Utf8::isAscii(first) && Utf8::isAscii(second)) {
    return std::equal(first.begin(), first.end(), second.begin(), second.end(),
                      [](char one, char other) { return asciiLower(one) == asciiLower(other); });
  }
  return caseKey(first) == caseKey(second);
}

std::string UnicodeText::baseKey(std::string_view text) {
  if (Utf8::isAscii(text)) return asciiLowerCased(text);
  const icu::UnicodeString folded = withoutDiacritics(decomposedForm(utf16(text))).foldCase();
  // Composed again: decomposed, a Hangul syllable would be found inside one that has one more letter.
  return utf8(composedForm(withoutDiacritics(decomposedForm(folded))));
}

bool UnicodeText::containsIgnoringCaseAndDiacritics(std::string_view text, std::string_view part) {
  return baseKey(text).find(baseKey(part)) != std::string::npos;
}

std::string UnicodeText::lowerCased(std::string_view text) {
  if (Utf8::isAscii(text)) return asciiLowerCased(text);
  return utf8(utf16(text).toLower(icu::Locale::getRoot()));
}

std::string UnicodeText::composed(std::string_view text) {
  if (Utf8::isAscii(text)) return std::string(text);
  return utf8(composedForm(utf16(text)));
}

std::string UnicodeText::trimmed(std::string_view text) {
  for (auto first = Utf8::next(text); first.size > 0 && isWhiteSpace(first.codePoint);
       first = Utf8::next(text)) {
    text.remove_prefix(first.size);
  }
  for (auto last = Utf8::previous(text, text.size()); last.size > 0 && isWhiteSpace(last.codePoint);
       last = Utf8::previous(text, text.size())) {
    text.remove_suffix(last.size);
  }
  return std::string(text);
}

std::string UnicodeText::singleSpaced(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  bool isInRun = false;
  for (std::size_t at = 0; at < text.size();) {
    const char byte = text[at];
    const bool isAscii = static_cast<unsigned char>(byte) < 0x80;
    const Utf8Character next = isAscii ? Utf8Character{static_cast<char32_t>(byte), 1} : Utf8::next(text, at);
    const bool isSpace = isWhiteSpace(next.codePoint);
    if (!isSpace) {
      result.append(text, at, next.size);
    } else if (!isInRun) {
      result += ' ';
    }
    isInRun = isSpace;
    at += next.size;
  }
  return result;
}

std::string UnicodeText::prefix(std::string_view text, std::size_t count) {
  if (text.size() <= count) return std::string(text);
  const icu::UnicodeString whole = utf16(text);
  UErrorCode error = U_ZERO_ERROR;
  const std::unique_ptr<icu::BreakIterator> characters(
      icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), error));
  if (U_FAILURE(error) != 0) return std::string(text);
  characters->setText(whole);
  std::int32_t end = characters->first();
  for (; count > 0 && end != icu::BreakIterator::DONE; --count) end = characters->next();
  return end == icu::BreakIterator::DONE ? std::string(text) : utf8(whole.tempSubString(0, end));
}

std::string UnicodeText::replacingMatches(std::string_view text, std::string_view expression,
                                          std::string_view with) {
  UErrorCode error = U_ZERO_ERROR;
  const std::unique_ptr<icu::RegexPattern> pattern(icu::RegexPattern::compile(utf16(expression), 0, error));
  if (U_FAILURE(error) != 0) fatal("a regular expression cannot be compiled");
  const icu::UnicodeString subject = utf16(text);
  const std::unique_ptr<icu::RegexMatcher> matcher(pattern->matcher(subject, error));
  const icu::UnicodeString replaced = matcher->replaceAll(utf16(with), error);
  return U_FAILURE(error) != 0 ? std::string(text) : utf8(replaced);
}

std::vector<std::string_view> UnicodeText::words(std::string_view text) {
  std::vector<std::string_view> found;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find(' ', start), text.size());
    if (end > start) found.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  return found;
}

}  // namespace tilwin
