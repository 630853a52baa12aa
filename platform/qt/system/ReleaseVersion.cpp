#include "platform/qt/system/ReleaseVersion.h"

#include <algorithm>
#include <charconv>
#include <system_error>
#include <utility>

namespace tilwin::qt {
namespace {

constexpr std::size_t longestVersion = 64;
constexpr std::string_view versionSpace = " \t\r\n";
constexpr std::string_view suffixSeparators = ".-_~";

bool isDigit(char each) { return each >= '0' && each <= '9'; }
char lowerCase(char each) { return each >= 'A' && each <= 'Z' ? static_cast<char>(each - 'A' + 'a') : each; }
bool isWordLetter(char each) { return lowerCase(each) >= 'a' && lowerCase(each) <= 'z'; }

std::string_view withoutEnds(std::string_view text) {
  const auto first = text.find_first_not_of(versionSpace);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(versionSpace) - first + 1);
}

/// Takes a number off the front of the text. Nothing if none is there or it is too large.
std::optional<std::uint64_t> takeNumber(std::string_view& text) {
  std::uint64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc()) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  return number;
}

bool isSuffix(std::string_view text) {
  if (text.empty()) return true;
  const auto isAllowed = [](char each) {
    return isDigit(each) || isWordLetter(each) || suffixSeparators.find(each) != std::string_view::npos;
  };
  return text.front() != '.' && std::all_of(text.begin(), text.end(), isAllowed);
}

using VersionPart = ReleaseVersion::Part;

/// Takes a run of digits or of letters, or one separator, off the front of the suffix.
std::optional<VersionPart> takePart(std::string_view& suffix) {
  const bool isWord = isWordLetter(suffix.front());
  const auto isOther = [&](char each) { return isWord ? !isWordLetter(each) : !isDigit(each); };
  const auto* const end = std::find_if(suffix.begin(), suffix.end(), isOther);
  const std::string_view run(suffix.data(), static_cast<std::size_t>(end - suffix.begin()));
  suffix.remove_prefix(std::max<std::size_t>(run.size(), 1));
  if (run.empty()) return std::nullopt;
  std::string_view rest = run;
  if (const auto number = isWord ? std::nullopt : takeNumber(rest)) return VersionPart{.number = *number};
  VersionPart part{.kind = ReleaseVersion::Kind::word, .word = std::string(run)};
  std::transform(part.word.begin(), part.word.end(), part.word.begin(), lowerCase);
  return part;
}

std::vector<VersionPart> partsOf(std::string_view suffix) {
  std::vector<VersionPart> parts;
  while (!suffix.empty()) {
    if (auto part = takePart(suffix)) parts.push_back(std::move(*part));
  }
  return parts;
}

}  // namespace

std::optional<ReleaseVersion> ReleaseVersion::parse(std::string_view text) {
  text = withoutEnds(text);
  if (text.size() > longestVersion) return std::nullopt;
  if (!text.empty() && lowerCase(text.front()) == 'v') text.remove_prefix(1);
  ReleaseVersion version;
  for (bool isMore = true; isMore;) {
    const auto number = takeNumber(text);
    if (!number) return std::nullopt;
    version.numbers.push_back(*number);
    isMore = text.size() > 1 && text[0] == '.' && isDigit(text[1]);
    if (isMore) text.remove_prefix(1);
  }
  while (!version.numbers.empty() && version.numbers.back() == 0) version.numbers.pop_back();
  const auto plus = text.find('+');
  if (plus != std::string_view::npos && !isSuffix(text.substr(plus + 1))) return std::nullopt;
  const std::string_view suffix = text.substr(0, plus);
  if (!isSuffix(suffix)) return std::nullopt;
  version.suffix = partsOf(suffix);
  if (!version.suffix.empty()) version.stage = Stage::early;
  return version;
}

}  // namespace tilwin::qt
