#include "packaging/commands/Reference.h"

#include <string_view>

#include "core/commands/CommandParser.h"
#include "core/commands/CommandTable.h"
#include "core/settings/SettingKeys.h"

namespace tilwin {
namespace {

constexpr std::string_view referenceHead = R"(# Commands

<!-- Made from the table of commands; edit that. -->

`tilwin` with a command tells the running Tilwin to do something: from a script, from a key that your window manager
keeps for itself, or from a panel. Without a running Tilwin, the commands that only move windows or list something are
carried out by the called program itself.

| Exit status | |
|---|---|
)";

std::string section(const CommandSpec& spec) {
  std::string text = "\n## tilwin " + CommandParser::usage(spec) + "\n\n" + std::string(spec.summary) + ".";
  if (!spec.details.empty()) text.append(" ").append(spec.details);
  if (!spec.option.word.empty())
    text.append(" `").append(spec.option.word).append("`: ").append(spec.option.summary);
  if (spec.reach == CommandReach::instance) text += " Tilwin must be running.";
  text += "\n";
  if (!spec.example.empty()) text += "\n```sh\ntilwin " + std::string(spec.example) + "\n```\n";
  return text;
}

}  // namespace

std::string commandReference() {
  std::string text(referenceHead);
  for (const ExitStatusMeaning& meaning : exitStatuses()) {
    text += "| " + std::to_string(meaning.status) + " | " + std::string(meaning.meaning) + " |\n";
  }
  for (const CommandSpec& spec : CommandTable::all()) text += section(spec);
  text += "\n## Settings\n\nThe keys of `tilwin get` and `tilwin set`, and what they are at first:\n\n";
  for (const std::string& key : SettingKeys::all()) {
    text += "- `" + key + "`: " + SettingKeys::text({}, key).value_or("") + "\n";
  }
  return text;
}

}  // namespace tilwin
