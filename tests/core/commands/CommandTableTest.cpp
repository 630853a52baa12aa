#include "core/commands/CommandTable.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

#include "core/commands/CommandHelp.h"

namespace tilwin {
namespace {

TEST(CommandTable, HasEachCommandOnce) {
  EXPECT_EQ(CommandTable::all().size(), 19U);
  std::set<CommandId> ids;
  std::set<std::string_view> words;
  for (const CommandSpec& spec : CommandTable::all()) {
    ids.insert(spec.id);
    words.insert(spec.words);
    EXPECT_EQ(&CommandTable::spec(spec.id), &spec) << spec.words;
  }
  EXPECT_EQ(ids.size(), CommandTable::all().size());
  EXPECT_EQ(words.size(), CommandTable::all().size());
}

TEST(CommandTable, AWordIsACommandOrAGroupNotBoth) {
  std::set<std::string_view> alone;
  std::set<std::string_view> groups;
  for (const CommandSpec& spec : CommandTable::all()) {
    (CommandTable::member(spec).empty() ? alone : groups).insert(CommandTable::group(spec));
  }
  for (const std::string_view word : alone) EXPECT_FALSE(groups.contains(word)) << word;
}

TEST(CommandTable, OnlyTheLastParametersAreOptional) {
  for (const CommandSpec& spec : CommandTable::all()) {
    bool mayBeLeftOut = false;
    for (const CommandParameter& parameter : spec.used()) {
      EXPECT_FALSE(mayBeLeftOut && !parameter.isOptional) << spec.words;
      mayBeLeftOut = parameter.isOptional;
    }
  }
}

TEST(CommandTable, EveryCommandWithParametersHasAnExample) {
  for (const CommandSpec& spec : CommandTable::all()) {
    EXPECT_EQ(spec.example.empty(), spec.used().empty() && spec.words != "layout list") << spec.words;
    EXPECT_FALSE(spec.summary.empty() || spec.summary.ends_with('.')) << spec.words;
  }
}

TEST(CommandHelp, ListsEveryCommandOnALineThatFitsATerminal) {
  const std::string text = CommandHelp::overview();
  for (const CommandSpec& spec : CommandTable::all()) {
    EXPECT_NE(text.find("\n  " + std::string(spec.words)), std::string::npos) << spec.words;
  }
  for (std::size_t start = 0; start < text.size();) {
    const auto end = text.find('\n', start);
    EXPECT_LE(end - start, 100U) << text.substr(start, end - start);
    start = end + 1;
  }
}

TEST(CommandHelp, ExplainsOneCommand) {
  EXPECT_EQ(CommandHelp::about("layout save"),
            "tilwin layout save NAME\n"
            "  Save where all windows are.\n"
            "  A layout that has this name already is replaced.\n"
            "  Tilwin must be running.\n"
            "  Example: tilwin layout save Writing\n");
}

TEST(CommandHelp, ExplainsAGroup) {
  const std::string text = CommandHelp::about("layout");
  for (const char* line : {"tilwin layout list [--json]\n", "\ntilwin layout delete NAME\n"}) {
    EXPECT_NE(text.find(line), std::string::npos) << line;
  }
}

TEST(CommandHelp, HasNothingToSayOfWhatIsNoCommand) { EXPECT_EQ(CommandHelp::about("juggle"), ""); }

}  // namespace
}  // namespace tilwin
