#include "app/menu/LayoutCommands.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/layouts/PhraseParser.h"
#include "core/support/UnicodeText.h"

namespace tilwin {
namespace {

constexpr std::size_t longestName = 40;  ///< characters of a sentence that become its layout's name

std::string inQuotes(std::string_view text) { return "“" + std::string(text) + "”"; }

bool hasText(const std::optional<std::string>& name) { return name && !name->empty(); }

/// The names of the slots that have one; an empty name counts as none.
std::vector<std::string> namesOf(const std::vector<LayoutSlot>& slots) {
  std::vector<std::string> names;
  for (const LayoutSlot& slot : slots) {
    const auto& name = hasText(slot.appName) ? slot.appName : slot.bundleID;
    if (hasText(name)) names.push_back(*name);
  }
  return names;
}

std::vector<PhraseParser::AppCandidate> candidates(Workspace& workspace) {
  std::vector<PhraseParser::AppCandidate> result;
  for (const RunningApplication& application : workspace.runningApplications()) {
    if (!application.isRegular || !application.bundleIdentifier || !application.localizedName) continue;
    result.push_back({*application.bundleIdentifier, *application.localizedName});
  }
  return result;
}

std::vector<std::string> problemsOf(const PhraseParser::Result& parsed, const PhraseParser::Slots& resolved) {
  std::vector<std::string> problems;
  for (const auto& piece : parsed.unreadable) problems.push_back("Could not read " + inQuotes(piece));
  for (const auto& query : resolved.unresolved) {
    problems.push_back("No single open app matches " + inQuotes(query));
  }
  return problems;
}

}  // namespace

Layout LayoutCommands::transientLayout(std::string_view sentence, std::vector<LayoutSlot> slots, Date now) {
  return {.id = Uuid::random(),
          .name = UnicodeText::prefix(sentence, longestName),
          .slots = std::move(slots),
          .updatedAt = now};
}

void LayoutCommands::apply(const std::string& id) {
  const auto layouts = keeper_.layouts().userLayouts();
  const auto layout = std::ranges::find_if(layouts, [&](const Layout& each) { return each.id.text() == id; });
  if (layout == layouts.end()) return;
  const auto unmatched = keeper_.place(*layout).unmatched;
  if (unmatched.empty()) return;
  dialogs_.tell({.title = counted(unmatched.size(), "window") + " not open",
                 .message = "These apps in " + inQuotes(layout->name) +
                            " have no open window: " + joined(namesOf(unmatched), ", ")});
}

void LayoutCommands::remove(const std::string& id) {
  if (const auto parsed = Uuid::parse(id)) keeper_.remove(*parsed);
}

void LayoutCommands::saveArrangement() {
  auto name = dialogs_.ask("Save this arrangement", "Name it, for example “Writing” or “Desk with monitor”.");
  if (name) keeper_.save(keeper_.capture(*std::move(name), false));
}

void LayoutCommands::describe() {
  const auto sentence =
      dialogs_.ask("Describe a layout",
                   "For example: Safari left two thirds, Notes right third. Tilwin reads the "
                   "words itself, nothing leaves your Mac.",
                   "Safari left, Notes right");
  if (sentence) place(*sentence);
}

void LayoutCommands::place(std::string_view sentence) {
  const auto parsed = PhraseParser::parse(sentence);
  auto resolved = PhraseParser::slots(parsed, candidates(workspace_));
  auto problems = problemsOf(parsed, resolved);
  if (resolved.slots.empty()) {
    if (problems.empty()) problems.emplace_back("Describe at least one app and where it goes.");
    dialogs_.tell({.title = "Nothing to place", .message = joined(problems, "\n")});
    return;
  }
  const Layout layout = transientLayout(sentence, std::move(resolved.slots), keeper_.now());
  const auto missing = keeper_.place(layout).unmatched.size();
  if (missing > 0) problems.push_back(counted(missing, "app") + " had no window to place");
  if (!problems.empty()) {
    dialogs_.tell({.title = "Placed what it could", .message = joined(problems, "\n")});
  }
}

}  // namespace tilwin
