#include "core/commands/CommandTable.h"

#include <algorithm>

namespace tilwin {
namespace {

using Id = CommandId;
using Kind = ParameterKind;
using Reach = CommandReach;

constexpr CommandParameter areaName{"NAME", Kind::area};
constexpr CommandParameter layoutName{"NAME", Kind::layout};
constexpr CommandOption asJson{"--json", "Print one line of JSON instead of text for people."};
constexpr CommandOption withNames{
    "--names", "Also name windows, programs and custom areas; the report has no such name otherwise."};

constexpr std::array commandTable = std::to_array<CommandSpec>({
    {.id = Id::snap,
     .words = "snap",
     .parameters = {{{"ACTION", Kind::action}}},
     .movesWindows = true,
     .summary = "Snap the focused window",
     .details =
         "ACTION is one of those that \"tilwin actions\" lists, as leftHalf or as left-half. As with a "
         "shortcut, a half or third that is asked for again takes the next width.",
     .example = "snap left-half"},
    {.id = Id::area,
     .words = "area",
     .parameters = {{areaName}},
     .movesWindows = true,
     .summary = "Move the focused window into a custom area",
     .details = "If several areas have that name, the first one counts.",
     .example = "area \"Reading column\""},
    {.id = Id::layoutList,
     .words = "layout list",
     .option = asJson,
     .summary = "List the saved layouts",
     .example = "layout list --json"},
    {.id = Id::layoutApply,
     .words = "layout apply",
     .parameters = {{layoutName}},
     .movesWindows = true,
     .summary = "Put the windows of a saved layout in place",
     .details =
         "It ends with status 1 if some of its windows are not open; the others are placed all the same.",
     .example = "layout apply Writing"},
    {.id = Id::layoutSave,
     .words = "layout save",
     .parameters = {{{"NAME", Kind::newLayout}}},
     .reach = Reach::instance,
     .summary = "Save where all windows are",
     .details = "A layout that has this name already is replaced.",
     .example = "layout save Writing"},
    {.id = Id::layoutDelete,
     .words = "layout delete",
     .parameters = {{layoutName}},
     .reach = Reach::instance,
     .summary = "Delete a saved layout",
     .example = "layout delete Writing"},
    {.id = Id::place,
     .words = "place",
     .parameters = {{{"SENTENCE", Kind::sentence}}},
     .movesWindows = true,
     .summary = "Put windows where a sentence says",
     .details =
         "The sentence names open programs and where they go. Several words are taken as one sentence.",
     .example = "place \"xterm left, firefox right two thirds\""},
    {.id = Id::windows,
     .words = "windows",
     .option = asJson,
     .summary = "List the windows that layouts may move, the front one first"},
    {.id = Id::displays,
     .words = "displays",
     .option = asJson,
     .summary = "List the displays, from left to right"},
    {.id = Id::actions,
     .words = "actions",
     .option = asJson,
     .summary = "List what \"tilwin snap\" can do, and the shortcuts"},
    {.id = Id::areas, .words = "areas", .option = asJson, .summary = "List the custom areas"},
    {.id = Id::doctor,
     .words = "doctor",
     .option = withNames,
     .summary = "Say what is wrong, and describe this desktop for a report of a bug"},
    {.id = Id::get,
     .words = "get",
     .parameters = {{{"KEY", Kind::settingKey, true}}},
     .option = asJson,
     .summary = "Show a setting, or all of them",
     .example = "get gap"},
    {.id = Id::set,
     .words = "set",
     .parameters = {{{"KEY", Kind::settingKey}, {"VALUE", Kind::settingValue}}},
     .reach = Reach::instance,
     .summary = "Change a setting",
     .details = "Distances are points from 0 to 64; switches are on or off. The shortcut of an action is "
                "shortcut.ACTION: keys joined by +, such as ctrl+alt+left, or none, or default.",
     .example = "set shortcut.leftHalf ctrl+alt+h"},
    {.id = Id::watch,
     .words = "watch",
     .reach = Reach::instance,
     .summary = "Print a line for each event, until Tilwin ends",
     .details =
         "Each line is a JSON object with the member \"event\": snap, layout, displays or setting. Windows "
         "have the number that \"tilwin windows --json\" gives them."},
    {.id = Id::settings,
     .words = "settings",
     .reach = Reach::instance,
     .summary = "Open the settings window"},
    {.id = Id::quit, .words = "quit", .reach = Reach::instance, .summary = "End the running Tilwin"},
    {.id = Id::help,
     .words = "help",
     .parameters = {{{"COMMAND", Kind::command, true}}},
     .reach = Reach::text,
     .summary = "Explain the commands, or one of them",
     .example = "help layout save"},
    {.id = Id::version, .words = "version", .reach = Reach::text, .summary = "Print the version"},
});

constexpr std::array statuses = std::to_array<ExitStatusMeaning>({
    {exit_status::done, "Done."},
    {exit_status::couldNot, "It could not be done, or not all of it; standard error has the reason."},
    {exit_status::wrongUse, "The command, an option or an argument is not one that there is."},
    {exit_status::needsInstance, "It needs a running Tilwin, and there is none."},
});

}  // namespace

std::span<const CommandSpec> CommandTable::all() { return commandTable; }

const CommandSpec& CommandTable::spec(CommandId id) {
  return *std::ranges::find(commandTable, id, &CommandSpec::id);
}

std::string_view CommandTable::group(const CommandSpec& spec) {
  return spec.words.substr(0, spec.words.find(' '));
}

std::string_view CommandTable::member(const CommandSpec& spec) {
  const auto space = spec.words.find(' ');
  return space == std::string_view::npos ? std::string_view() : spec.words.substr(space + 1);
}

std::vector<std::string_view> CommandTable::groups() {
  std::vector<std::string_view> result;
  for (const CommandSpec& spec : commandTable) {
    if (std::ranges::find(result, group(spec)) == result.end()) {
      result.push_back(group(spec));
    }
  }
  return result;
}

std::vector<CommandOption> CommandTable::options() {
  std::vector<CommandOption> result;
  for (const CommandSpec& spec : commandTable) {
    if (!spec.option.word.empty() && std::ranges::find(result, spec.option) == result.end()) {
      result.push_back(spec.option);
    }
  }
  return result;
}

std::vector<std::string_view> CommandTable::members(std::string_view of) {
  std::vector<std::string_view> result;
  for (const CommandSpec& spec : commandTable) {
    if (group(spec) == of && !member(spec).empty()) {
      result.push_back(member(spec));
    }
  }
  return result;
}

std::span<const ExitStatusMeaning> exitStatuses() { return statuses; }

}  // namespace tilwin
