#include "core/commands/CommandParser.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include "core/commands/NearestWord.h"

namespace tilwin {
namespace {

using Words = std::span<const std::string>;

constexpr std::string_view endOfOptions = "--";

/// Options that stand for a command.
struct Alias {
  std::string_view option;
  std::string_view command;
};

constexpr std::array aliases = std::to_array<Alias>({
    {"--help", "help"},
    {"-h", "help"},
    {"--version", "version"},
});

const Alias* aliasNamed(std::string_view option) {
  const auto* const found = std::ranges::find(aliases, option, &Alias::option);
  return found == aliases.end() ? nullptr : found;
}

std::string inDoubleQuotes(std::string_view word) { return "\"" + std::string(word) + "\""; }

std::string listed(std::span<const std::string_view> words) {
  std::string result;
  for (const std::string_view word : words) result += (result.empty() ? "" : ", ") + std::string(word);
  return result;
}

/// The row of these words, and how many of them are its name.
struct Named {
  const CommandSpec* spec = nullptr;
  std::size_t words = 0;
};

std::variant<Named, Misuse> named(Words words) {
  const auto all = CommandTable::all();
  const auto inGroup = [&](const CommandSpec& spec) { return CommandTable::group(spec) == words.front(); };
  const auto first = std::ranges::find_if(all, inGroup);
  if (first == all.end()) {
    return Misuse{inDoubleQuotes(words.front()) + " is not a command." +
                  NearestWord::question(words.front(), CommandTable::groups())};
  }
  if (CommandTable::member(*first).empty()) return Named{&*first, 1};
  const auto members = CommandTable::members(words.front());
  if (words.size() < 2)
    return Misuse{inDoubleQuotes(words.front()) + " needs one of: " + listed(members) + "."};
  const auto isMeant = [&](const CommandSpec& spec) {
    return inGroup(spec) && CommandTable::member(spec) == words[1];
  };
  const auto row = std::ranges::find_if(all, isMeant);
  if (row != all.end()) return Named{&*row, 2};
  const auto question = NearestWord::question(words[1], members);
  return Misuse{inDoubleQuotes(words.front() + " " + words[1]) + " is not a command." +
                (question.empty() ? " There are: " + listed(members) + "." : question)};
}

/// The arguments after a command's name, without its options.
struct Rest {
  std::vector<std::string> arguments{};
  bool hasOption = false;
  bool asksForHelp = false;
};

std::variant<Rest, Misuse> rest(const CommandSpec& spec, Words words) {
  Rest result;
  bool mayBeOption = true;
  for (const std::string& word : words) {
    const bool isOption = mayBeOption && (word.starts_with("--") || word == "-h");
    if (!isOption) {
      result.arguments.push_back(word);
    } else if (word == endOfOptions) {
      mayBeOption = false;
    } else if (word == spec.option.word) {
      result.hasOption = true;
    } else if (const Alias* alias = aliasNamed(word); alias != nullptr && alias->command == "help") {
      result.asksForHelp = true;
    } else {
      const std::array<std::string_view, 2> options{"--help",
                                                    spec.option.word.empty() ? "--help" : spec.option.word};
      return Misuse{inDoubleQuotes(spec.words) + " has no option " + inDoubleQuotes(word) + "." +
                    NearestWord::question(word, options)};
    }
  }
  return result;
}

bool takesAllThatFollows(ParameterKind kind) {
  return kind == ParameterKind::sentence || kind == ParameterKind::command ||
         kind == ParameterKind::settingValue;
}

/// Joins the words of a sentence, which need no quotes then.
std::vector<std::string> joinedAtTheEnd(std::span<const CommandParameter> parameters,
                                        std::vector<std::string> arguments) {
  if (parameters.empty() || !takesAllThatFollows(parameters.back().kind)) return arguments;
  while (arguments.size() > parameters.size()) {
    std::string last = std::move(arguments.back());
    arguments.pop_back();
    arguments.back() += " " + last;
  }
  return arguments;
}

std::optional<Misuse> wrongCount(const CommandSpec& spec, std::size_t count) {
  const auto parameters = spec.used();
  if (count > parameters.size()) {
    const std::string most = parameters.empty() ? "no arguments" : "fewer arguments";
    return Misuse{inDoubleQuotes(spec.words) + " takes " + most + ": tilwin " + CommandParser::usage(spec)};
  }
  if (count < parameters.size() && !parameters[count].isOptional) {
    return Misuse{inDoubleQuotes(spec.words) + " needs " + std::string(parameters[count].name) + ": tilwin " +
                  CommandParser::usage(spec)};
  }
  return std::nullopt;
}

}  // namespace

std::variant<CommandRequest, Misuse> CommandParser::parse(std::span<const std::string> arguments) {
  if (arguments.empty()) return CommandRequest{};
  std::vector<std::string> words(arguments.begin(), arguments.end());
  if (const Alias* alias = aliasNamed(words.front())) words.front() = alias->command;
  const auto name = named(words);
  if (const auto* misuse = std::get_if<Misuse>(&name)) return *misuse;
  const auto& [spec, used] = std::get<Named>(name);
  auto found = rest(*spec, Words(words).subspan(used));
  if (auto* misuse = std::get_if<Misuse>(&found)) return std::move(*misuse);
  auto& after = std::get<Rest>(found);
  if (after.asksForHelp) return CommandRequest{CommandId::help, {std::string(spec->words)}};
  after.arguments = joinedAtTheEnd(spec->used(), std::move(after.arguments));
  if (auto misuse = wrongCount(*spec, after.arguments.size())) return *std::move(misuse);
  return CommandRequest{spec->id, std::move(after.arguments), after.hasOption};
}

bool CommandParser::isForCommand(std::string_view firstArgument) {
  return aliasNamed(firstArgument) != nullptr || !(firstArgument.empty() || firstArgument.starts_with('-'));
}

std::string CommandParser::usage(const CommandSpec& spec) {
  std::string result(spec.words);
  for (const CommandParameter& parameter : spec.used()) {
    const std::string name(parameter.name);
    result += parameter.isOptional ? " [" + name + "]" : " " + name;
  }
  return spec.option.word.empty() ? result : result.append(" [").append(spec.option.word).append("]");
}

}  // namespace tilwin
