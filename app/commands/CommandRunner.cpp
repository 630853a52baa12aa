#include "app/commands/CommandRunner.h"

#include <algorithm>
#include <array>
#include <utility>

#include "app/commands/CommandLists.h"
#include "app/commands/CommandNames.h"
#include "app/layouts/LayoutRequests.h"
#include "core/commands/CommandHelp.h"
#include "core/settings/SettingKeys.h"

namespace tilwin {
namespace {

CommandReply couldNot(const std::string& problem) {
  return CommandReply::failed(exit_status::couldNot, problem);
}
CommandReply wrongUse(const std::string& problem) {
  return CommandReply::failed(exit_status::wrongUse, problem);
}

CommandReply refused(const DialogText& text) {
  std::string problem = text.title;
  problem.append(text.message.empty() ? "" : ":\n").append(text.message);
  return couldNot(problem);
}

CommandReply help(const CommandRequest& request) {
  if (request.arguments.empty()) return CommandReply::done(CommandHelp::overview());
  const std::string text = CommandHelp::about(request.arguments.front());
  if (!text.empty()) return CommandReply::done(text);
  std::vector<std::string_view> words;
  for (const CommandSpec& spec : CommandTable::all()) words.push_back(spec.words);
  return wrongUse("\"" + request.arguments.front() + "\" is not a command." +
                  NearestWord::question(request.arguments.front(), words));
}

CommandReply needsInstance() {
  return CommandReply::failed(exit_status::needsInstance, "Tilwin is not running. Start it with \"tilwin\".");
}

CommandReply unknownKey(std::string_view key) {
  const auto keys = SettingKeys::all();
  const std::vector<std::string_view> views(keys.begin(), keys.end());
  return wrongUse("There is no setting \"" + std::string(key) + "\"." + NearestWord::question(key, views));
}

}  // namespace

struct CommandRunner::Entry {
  CommandId command;
  CommandReply (CommandRunner::*run)(const CommandRequest& request);
};

CommandReply CommandRunner::run(std::span<const std::string> arguments) {
  const auto parsed = CommandParser::parse(arguments);
  if (const auto* misuse = std::get_if<Misuse>(&parsed)) return wrongUse(misuse->message);
  return carryOut(std::get<CommandRequest>(parsed));
}

std::optional<CommandReply> CommandRunner::runWithoutDesktop(std::span<const std::string> arguments,
                                                             std::string_view version) {
  const auto parsed = CommandParser::parse(arguments);
  if (const auto* misuse = std::get_if<Misuse>(&parsed)) return wrongUse(misuse->message);
  const auto& request = std::get<CommandRequest>(parsed);
  if (request.command == CommandId::help) return help(request);
  if (request.command == CommandId::version) return CommandReply::done(std::string(version) + "\n");
  if (CommandTable::spec(request.command).reach == CommandReach::instance) return needsInstance();
  return std::nullopt;
}

CommandReply CommandRunner::carryOut(const CommandRequest& request) {
  static constexpr std::array entries = std::to_array<Entry>({
      {CommandId::snap, &CommandRunner::snap},
      {CommandId::area, &CommandRunner::area},
      {CommandId::layoutList, &CommandRunner::layoutList},
      {CommandId::layoutApply, &CommandRunner::layoutApply},
      {CommandId::layoutSave, &CommandRunner::layoutSave},
      {CommandId::layoutDelete, &CommandRunner::layoutDelete},
      {CommandId::place, &CommandRunner::place},
      {CommandId::windows, &CommandRunner::windows},
      {CommandId::displays, &CommandRunner::displays},
      {CommandId::actions, &CommandRunner::actions},
      {CommandId::areas, &CommandRunner::areas},
      {CommandId::doctor, &CommandRunner::doctor},
      {CommandId::get, &CommandRunner::get},
      {CommandId::set, &CommandRunner::set},
      {CommandId::watch, &CommandRunner::watch},
      {CommandId::settings, &CommandRunner::settings},
      {CommandId::quit, &CommandRunner::quit},
  });
  const CommandSpec& spec = CommandTable::spec(request.command);
  if (spec.reach == CommandReach::instance && !instance_) return needsInstance();
  const auto* const entry = std::ranges::find(entries, request.command, &Entry::command);
  // What needs no desktop is answered by whoever was called.
  return entry == entries.end() ? help(request) : (this->*entry->run)(request);
}

CommandReply CommandRunner::snap(const CommandRequest& request) {
  const auto action = CommandNames::action(request.arguments.front());
  if (!action) return wrongUse(CommandNames::noSuchAction(request.arguments.front()));
  return parts_.controller.perform(*action) ? CommandReply::done() : couldNot(whyNotMoved(action));
}

CommandReply CommandRunner::area(const CommandRequest& request) {
  const auto& areas = parts_.store.settings.get().customAreas;
  const CustomArea* const area = CommandNames::find(areas, request.arguments.front());
  if (area == nullptr) return couldNot(CommandNames::noSuch("area", areas, request.arguments.front()));
  return parts_.controller.snap(*area) ? CommandReply::done() : couldNot(whyNotMoved(std::nullopt));
}

std::string CommandRunner::whyNotMoved(std::optional<SnapAction> action) {
  if (!parts_.trust.isTrusted()) return "Tilwin is not allowed to move windows.";
  const auto window = parts_.windows.focusedWindow();
  if (!window) return "No window has the focus.";
  if (parts_.controller.ignoredBundleIDs.contains(window->bundleID)) {
    return "Tilwin leaves the windows of " + window->appName + " alone.";
  }
  if (action == SnapAction::restore) return "Tilwin has not moved this window.";
  return "The window stays where it is.";
}

CommandReply CommandRunner::layoutList(const CommandRequest& request) {
  return CommandReply::done(CommandLists::layouts(parts_.layouts.layouts().userLayouts(), request.hasOption));
}

CommandReply CommandRunner::layoutApply(const CommandRequest& request) {
  const auto layouts = parts_.layouts.layouts().userLayouts();
  const Layout* const layout = CommandNames::find(layouts, request.arguments.front());
  if (layout == nullptr) return couldNot(CommandNames::noSuch("layout", layouts, request.arguments.front()));
  const auto problem = LayoutRequests::place(parts_.layouts, *layout);
  return problem ? refused(*problem) : CommandReply::done();
}

CommandReply CommandRunner::layoutSave(const CommandRequest& request) {
  const std::string& name = request.arguments.front();
  if (name.empty()) return wrongUse("A layout needs a name.");
  Layout layout = parts_.layouts.capture(name, false);
  const auto layouts = parts_.layouts.layouts().userLayouts();
  const auto old = std::ranges::find(layouts, name, &Layout::name);
  if (old != layouts.end()) layout.id = old->id;
  parts_.layouts.save(layout);
  return CommandReply::done();
}

CommandReply CommandRunner::layoutDelete(const CommandRequest& request) {
  const auto layouts = parts_.layouts.layouts().userLayouts();
  const auto layout = std::ranges::find(layouts, request.arguments.front(), &Layout::name);
  if (layout == layouts.end())
    return couldNot(CommandNames::noSuch("layout", layouts, request.arguments.front()));
  parts_.layouts.remove(layout->id);
  return CommandReply::done();
}

CommandReply CommandRunner::place(const CommandRequest& request) {
  const auto problem =
      LayoutRequests::placeDescribed(parts_.layouts, parts_.workspace, request.arguments.front());
  return problem ? refused(*problem) : CommandReply::done();
}

CommandReply CommandRunner::windows(const CommandRequest& request) {
  return CommandReply::done(CommandLists::windows(parts_.windows.allWindows(), parts_.windows.focusedWindow(),
                                                  parts_.windows.displays(), request.hasOption));
}

CommandReply CommandRunner::displays(const CommandRequest& request) {
  return CommandReply::done(CommandLists::displays(parts_.windows.displays(), request.hasOption));
}

CommandReply CommandRunner::actions(const CommandRequest& request) {
  return CommandReply::done(CommandLists::actions(parts_.store.settings.get(), request.hasOption));
}

CommandReply CommandRunner::areas(const CommandRequest& request) {
  return CommandReply::done(CommandLists::areas(parts_.store.settings.get().customAreas, request.hasOption));
}

CommandReply CommandRunner::doctor(const CommandRequest& request) {
  using Names = DoctorReport::Names;
  return CommandReply::done(parts_.doctor.report(request.hasOption ? Names::all : Names::none));
}

CommandReply CommandRunner::get(const CommandRequest& request) {
  const TilwinSettings& settings = parts_.store.settings.get();
  if (request.arguments.empty())
    return CommandReply::done(CommandLists::settings(settings, request.hasOption));
  const std::string& key = request.arguments.front();
  const auto value = request.hasOption ? SettingKeys::json(settings, key) : SettingKeys::text(settings, key);
  return value ? CommandReply::done(*value + "\n") : unknownKey(key);
}

CommandReply CommandRunner::set(const CommandRequest& request) {
  const std::string& key = request.arguments.front();
  const TilwinSettings& settings = parts_.store.settings.get();
  if (!SettingKeys::text(settings, key)) return unknownKey(key);
  auto changed = SettingKeys::changed(settings, key, request.arguments.back(), parts_.words.wording());
  if (const auto* refusal = std::get_if<SettingKeys::Refusal>(&changed)) return couldNot(refusal->reason);
  parts_.store.settings.set(std::get<TilwinSettings>(std::move(changed)));
  return CommandReply::done();
}

CommandReply CommandRunner::watch(const CommandRequest& /*request*/) {
  CommandReply reply;
  reply.isWatching = instance_.has_value();
  return reply;
}

CommandReply CommandRunner::settings(const CommandRequest&) {
  instance_->showSettings();
  return CommandReply::done();
}

CommandReply CommandRunner::quit(const CommandRequest&) {
  instance_->quit();
  return CommandReply::done();
}

}  // namespace tilwin
