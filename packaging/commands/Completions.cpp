#include "packaging/commands/Completions.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>
#include <vector>

#include "core/commands/CommandTable.h"
#include "core/settings/SettingKeys.h"
#include "core/snap/actions/SnapAction.h"

namespace tilwin {
namespace {

using Kind = ParameterKind;

constexpr std::string_view notice = "# Made from the table of commands; edit that.\n";

template <typename Words>
std::string joinedBySpaces(const Words& words) {
  std::string text;
  for (const auto& word : words) text.append(text.empty() ? "" : " ").append(word);
  return text;
}

std::string actionWords() {
  std::vector<std::string_view> words;
  std::ranges::transform(SnapActions::all(), std::back_inserter(words), SnapActions::rawValue);
  return joinedBySpaces(words);
}

/// How a shell finds the words for an argument: fixed ones, or the lines that a command prints.
struct Source {
  Kind kind;
  std::string (*words)();
  std::string_view command;
};

constexpr std::array sources = std::to_array<Source>({
    {Kind::action, actionWords, ""},
    {Kind::settingKey, [] { return joinedBySpaces(SettingKeys::all()); }, ""},
    {Kind::layout, nullptr, "tilwin layout list"},
    {Kind::area, nullptr, "tilwin areas"},
});

const Source* sourceOf(Kind kind) {
  const auto* const found = std::ranges::find(sources, kind, &Source::kind);
  return found == sources.end() ? nullptr : found;
}

/// What the words before the cursor may be, and what then may follow.
struct Position {
  std::string before;  ///< "layout apply", or "*" for none
  std::string words{};
  std::string_view command{};  ///< whose lines are the words; empty: `words`
};

std::vector<Position> positions() {
  std::vector<Position> result;
  for (const std::string_view group : CommandTable::groups()) {
    if (const auto members = CommandTable::members(group); !members.empty())
      result.push_back({std::string(group), joinedBySpaces(members)});
  }
  for (const CommandSpec& spec : CommandTable::all()) {
    Position position{std::string(spec.words)};
    const auto parameters = spec.used();
    const Source* const source = parameters.empty() ? nullptr : sourceOf(parameters.front().kind);
    if (source != nullptr && source->words != nullptr) position.words = source->words();
    if (source != nullptr) position.command = source->command;
    if (spec.id == CommandId::help) position.words = joinedBySpaces(CommandTable::groups());
    if (!spec.option.word.empty())
      position.words.append(position.words.empty() ? "" : " ").append(spec.option.word);
    if (!position.words.empty() || !position.command.empty()) result.push_back(std::move(position));
  }
  return result;
}

}  // namespace

std::string bashCompletion() {
  // Not by compgen, which would carry out what a name has in it.
  std::string text = std::string(notice) +
                     "_tilwin_lines() {\n"
                     "  local line\n"
                     "  while IFS= read -r line; do\n"
                     "    if [[ $line == \"$1\"* ]]; then COMPREPLY+=(\"$(printf %q \"$line\")\"); fi\n"
                     "  done\n"
                     "}\n"
                     "_tilwin() {\n"
                     "  local current=${COMP_WORDS[COMP_CWORD]} words=\n"
                     "  local IFS=' '\n"
                     "  COMPREPLY=()\n"
                     "  case \"${COMP_WORDS[*]:1:COMP_CWORD-1}\" in\n"
                     "    '') words='" +
                     joinedBySpaces(CommandTable::groups()) + "' ;;\n";
  for (const Position& position : positions()) {
    text += "    '" + position.before + "') ";
    text += position.command.empty()
                ? "words='" + position.words + "' ;;\n"
                : "_tilwin_lines \"$current\" < <(" + std::string(position.command) + " 2>/dev/null) ;;\n";
  }
  return text +
         "  esac\n"
         "  local word\n"
         "  for word in $words; do\n"
         "    if [[ $word == \"$current\"* ]]; then COMPREPLY+=(\"$word\"); fi\n"
         "  done\n"
         "}\n"
         "complete -F _tilwin tilwin\n";
}

std::string zshCompletion() {
  std::string text = "#compdef tilwin\n" + std::string(notice) +
                     "local -a options\n"
                     "case \"${(j: :)words[2,CURRENT-1]}\" in\n"
                     "  '') options=(" +
                     joinedBySpaces(CommandTable::groups()) + ") ;;\n";
  for (const Position& position : positions()) {
    text += "  '" + position.before + "') options=(";
    text += position.command.empty() ? position.words
                                     : "${(f)\"$(" + std::string(position.command) + " 2>/dev/null)\"}";
    text += ") ;;\n";
  }
  return text + "esac\ncompadd -a options\n";
}

std::string fishCompletion() {
  std::string text = std::string(notice) +
                     "function __tilwin_after\n"
                     "    set -l words (commandline -opc)\n"
                     "    test \"$words[2..]\" = \"$argv\"\n"
                     "end\n"
                     "complete -c tilwin -f\n"
                     "complete -c tilwin -n '__tilwin_after' -a '" +
                     joinedBySpaces(CommandTable::groups()) + "'\n";
  for (const Position& position : positions()) {
    const std::string words =
        position.command.empty() ? position.words : "(" + std::string(position.command) + " 2>/dev/null)";
    text += "complete -c tilwin -n '__tilwin_after " + position.before + "' -a '" + words + "'\n";
  }
  return text;
}

}  // namespace tilwin
