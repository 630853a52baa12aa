#include "core/commands/CommandParser.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tilwin {
namespace {

using Words = std::vector<std::string>;

CommandRequest requestOf(const Words& words) {
  const auto parsed = CommandParser::parse(words);
  const auto* misuse = std::get_if<Misuse>(&parsed);
  EXPECT_EQ(misuse, nullptr) << misuse->message;
  return misuse == nullptr ? std::get<CommandRequest>(parsed) : CommandRequest{};
}

std::string misuseOf(const Words& words) {
  const auto parsed = CommandParser::parse(words);
  const auto* misuse = std::get_if<Misuse>(&parsed);
  return misuse == nullptr ? "no misuse" : misuse->message;
}

/// The words of a line; spaces between double quotes belong to a word.
Words asInAShell(std::string_view line) {
  Words words{""};
  bool isQuoted = false;
  for (const char each : line) {
    if (each == '"') {
      isQuoted = !isQuoted;
    } else if (each == ' ' && !isQuoted) {
      words.emplace_back();
    } else {
      words.back() += each;
    }
  }
  return words;
}

TEST(CommandParser, ReadsACommandWithItsArgument) {
  EXPECT_EQ(requestOf({"snap", "leftHalf"}), (CommandRequest{CommandId::snap, {"leftHalf"}}));
  EXPECT_EQ(requestOf({"quit"}), (CommandRequest{CommandId::quit}));
}

TEST(CommandParser, ReadsCommandsOfTwoWords) {
  EXPECT_EQ(requestOf({"layout", "save", "Desk"}), (CommandRequest{CommandId::layoutSave, {"Desk"}}));
  EXPECT_EQ(requestOf({"layout", "list"}), (CommandRequest{CommandId::layoutList}));
}

TEST(CommandParser, TakesTheOptionForJsonAnywhereAfterTheCommand) {
  EXPECT_EQ(requestOf({"windows", "--json"}), (CommandRequest{CommandId::windows, {}, true}));
  EXPECT_EQ(requestOf({"doctor", "--names"}), (CommandRequest{CommandId::doctor, {}, true}));
  EXPECT_EQ(requestOf({"get", "--json", "gap"}), (CommandRequest{CommandId::get, {"gap"}, true}));
}

TEST(CommandParser, AfterTwoHyphensNothingIsAnOption) {
  EXPECT_EQ(requestOf({"layout", "save", "--", "--json"}),
            (CommandRequest{CommandId::layoutSave, {"--json"}}));
}

TEST(CommandParser, TakesNegativeNumbersAsValues) {
  EXPECT_EQ(requestOf({"set", "gap", "-3"}), (CommandRequest{CommandId::set, {"gap", "-3"}}));
}

TEST(CommandParser, TakesTheWordsOfASentenceTogether) {
  EXPECT_EQ(requestOf({"place", "xterm", "left,", "mpv right"}),
            (CommandRequest{CommandId::place, {"xterm left, mpv right"}}));
}

TEST(CommandParser, EveryExampleOfTheTableIsACommand) {
  for (const CommandSpec& spec : CommandTable::all()) {
    if (spec.example.empty()) continue;
    const Words words = asInAShell(spec.example);
    EXPECT_EQ(requestOf(words).command, spec.id) << spec.example;
  }
}

TEST(CommandParser, OptionsThatStandForCommands) {
  EXPECT_EQ(requestOf({"--help"}), (CommandRequest{CommandId::help}));
  EXPECT_EQ(requestOf({"-h"}), (CommandRequest{CommandId::help}));
  EXPECT_EQ(requestOf({"--version"}), (CommandRequest{CommandId::version}));
  EXPECT_EQ(requestOf({"layout", "save", "--help"}), (CommandRequest{CommandId::help, {"layout save"}}));
  EXPECT_EQ(requestOf({"help", "layout", "save"}), (CommandRequest{CommandId::help, {"layout save"}}));
}

TEST(CommandParser, NamesTheNearestCommand) {
  EXPECT_EQ(misuseOf({"snpa"}), "\"snpa\" is not a command. Did you mean \"snap\"?");
  EXPECT_EQ(misuseOf({"layout", "aply", "Desk"}),
            "\"layout aply\" is not a command. Did you mean \"apply\"?");
}

TEST(CommandParser, NamesNothingWhereNothingIsNear) {
  EXPECT_EQ(misuseOf({"hypotenuse"}), "\"hypotenuse\" is not a command.");
  EXPECT_EQ(misuseOf({"layout", "xyzzy"}),
            "\"layout xyzzy\" is not a command. There are: list, apply, save, delete.");
}

TEST(CommandParser, SaysWhatIsMissing) {
  EXPECT_EQ(misuseOf({"snap"}), "\"snap\" needs ACTION: tilwin snap ACTION");
  EXPECT_EQ(misuseOf({"set", "gap"}), "\"set\" needs VALUE: tilwin set KEY VALUE");
  EXPECT_EQ(misuseOf({"layout"}), "\"layout\" needs one of: list, apply, save, delete.");
}

TEST(CommandParser, SaysWhatIsTooMuch) {
  EXPECT_EQ(misuseOf({"quit", "now"}), "\"quit\" takes no arguments: tilwin quit");
  EXPECT_EQ(misuseOf({"snap", "left", "half"}), "\"snap\" takes fewer arguments: tilwin snap ACTION");
  EXPECT_EQ(misuseOf({"get", "gap", "outer"}), "\"get\" takes fewer arguments: tilwin get [KEY] [--json]");
}

TEST(CommandParser, NamesTheNearestOption) {
  EXPECT_EQ(misuseOf({"windows", "--jsno"}),
            "\"windows\" has no option \"--jsno\". Did you mean \"--json\"?");
  EXPECT_EQ(misuseOf({"snap", "leftHalf", "--json"}), "\"snap\" has no option \"--json\".");
}

TEST(CommandParser, LeavesModesAndThePlainStartToTheProgram) {
  for (const char* word : {"--status", "--shadow-report", "-psn_0_1", ""}) {
    EXPECT_FALSE(CommandParser::isForCommand(word)) << word;
  }
  for (const char* word : {"snap", "nonsense", "--help", "-h", "--version"}) {
    EXPECT_TRUE(CommandParser::isForCommand(word)) << word;
  }
}

}  // namespace
}  // namespace tilwin
