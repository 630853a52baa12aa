#include "core/support/JsonSource.h"

#include <algorithm>
#include <clocale>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <utility>

namespace tilwin {
namespace {

/// The library reads floats with `strtod` too, so both agree on what overflows; `strtod` wants the point of
/// the locale that the process has set.
bool overflows(std::string number) {
  std::replace(number.begin(), number.end(), '.', *std::localeconv()->decimal_point);
  char* end = nullptr;
  const double value = std::strtod(number.c_str(), &end);
  return std::isinf(value) && *end == '\0';
}

/// Just behind the text literal that starts at `start`, or the end.
std::size_t endOfText(std::string_view json, std::size_t start) {
  for (std::size_t at = start + 1; at < json.size(); ++at) {
    if (json[at] == '\\') {
      ++at;
    } else if (json[at] == '"') {
      return at + 1;
    }
  }
  return json.size();
}

}  // namespace

std::string JsonSource::withoutOverflows(std::string_view json) {
  constexpr std::string_view starts = "\"-0123456789";
  constexpr std::string_view ofNumbers = "+-.0123456789Ee";
  std::string result;
  std::size_t at = 0;
  while (at < json.size()) {
    const std::size_t start = std::min(json.find_first_of(starts, at), json.size());
    result += json.substr(at, start - at);
    if (start == json.size()) break;
    const bool isText = json[start] == '"';
    at = isText ? endOfText(json, start) : std::min(json.find_first_not_of(ofNumbers, start), json.size());
    const std::string token(json.substr(start, at - start));
    result += !isText && overflows(token) ? "null" : token;
  }
  return result;
}

std::string JsonSource::withSingleBlanks(std::string_view json) {
  std::string result(json.size(), '\0');
  std::size_t size = 0;
  bool inText = false;
  bool afterBlank = false;
  for (std::size_t at = 0; at < json.size(); ++at) {
    const char character = json[at];
    const bool isBlank =
        !inText && (character == ' ' || character == '\n' || character == '\t' || character == '\r');
    if (isBlank && std::exchange(afterBlank, true)) continue;
    afterBlank = isBlank;
    result[size++] = isBlank ? ' ' : character;
    if (character == '"') inText = !inText;
    if (inText && character == '\\' && at + 1 < json.size()) result[size++] = json[++at];
  }
  result.resize(size);
  return result;
}

}  // namespace tilwin
