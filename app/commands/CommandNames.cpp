#include "app/commands/CommandNames.h"

namespace tilwin {
namespace {

/// "left-half" as "leftHalf".
std::string withoutHyphens(std::string_view name) {
  std::string result;
  bool startsWord = false;
  for (const char each : name) {
    if (each == '-') {
      startsWord = true;
      continue;
    }
    const bool isLower = each >= 'a' && each <= 'z';
    result += startsWord && isLower ? static_cast<char>(each - 'a' + 'A') : each;
    startsWord = false;
  }
  return result;
}

}  // namespace

std::optional<SnapAction> CommandNames::action(std::string_view name) {
  const auto exact = SnapActions::fromRawValue(name);
  return exact ? exact : SnapActions::fromRawValue(withoutHyphens(name));
}

std::string CommandNames::noSuchAction(std::string_view name) {
  std::vector<std::string_view> names;
  for (const SnapAction action : SnapActions::all()) names.push_back(SnapActions::rawValue(action));
  const auto question = NearestWord::question(name, names);
  return "\"" + std::string(name) + "\" is no action." +
         (question.empty() ? " \"tilwin actions\" lists them." : question);
}

std::string CommandNames::noSuchName(std::string_view kind, std::span<const std::string_view> names,
                                     std::string_view name) {
  return "There is no " + std::string(kind) + " \"" + std::string(name) + "\"." +
         NearestWord::question(name, names);
}

}  // namespace tilwin
