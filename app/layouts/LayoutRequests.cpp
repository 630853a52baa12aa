#include "app/layouts/LayoutRequests.h"

#include <cstddef>
#include <string>
#include <utility>

#include "core/layouts/PhraseParser.h"
#include "core/support/ListText.h"
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

Layout LayoutRequests::transientLayout(std::string_view sentence, std::vector<LayoutSlot> slots, Date now) {
  return {.id = Uuid::random(),
          .name = UnicodeText::prefix(sentence, longestName),
          .slots = std::move(slots),
          .updatedAt = now};
}

std::optional<DialogText> LayoutRequests::place(LayoutKeeper& keeper, const Layout& layout) {
  const auto unmatched = keeper.place(layout).unmatched;
  if (unmatched.empty()) return std::nullopt;
  return DialogText{.title = counted(unmatched.size(), "window") + " not open",
                    .message = "These apps in " + inQuotes(layout.name) +
                               " have no open window: " + joined(namesOf(unmatched), ", ")};
}

std::optional<DialogText> LayoutRequests::placeDescribed(LayoutKeeper& keeper, Workspace& workspace,
                                                         std::string_view sentence) {
  const auto parsed = PhraseParser::parse(sentence);
  auto resolved = PhraseParser::slots(parsed, candidates(workspace));
  auto problems = problemsOf(parsed, resolved);
  if (resolved.slots.empty()) {
    if (problems.empty()) problems.emplace_back("Describe at least one app and where it goes.");
    return DialogText{.title = "Nothing to place", .message = joined(problems, "\n")};
  }
  const Layout layout = transientLayout(sentence, std::move(resolved.slots), keeper.now());
  const auto missing = keeper.place(layout).unmatched.size();
  if (missing > 0) problems.push_back(counted(missing, "app") + " had no window to place");
  if (problems.empty()) return std::nullopt;
  return DialogText{.title = "Placed what it could", .message = joined(problems, "\n")};
}

}  // namespace tilwin
