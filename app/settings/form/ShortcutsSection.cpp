#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <utility>

#include "app/actions/ActionGroups.h"
#include "app/settings/form/FormIds.h"
#include "app/settings/form/FormSections.h"
#include "app/settings/form/Miniatures.h"
#include "app/settings/form/ShortcutControl.h"
#include "core/settings/KeyNames.h"
#include "core/support/UnicodeText.h"

namespace tilwin {
namespace {

FormRow shortcutRow(SnapAction action, const FormState& state) {
  const std::string title(SnapActions::title(action));
  const bool isDisabled = state.settings.disabled.contains(std::string(SnapActions::rawValue(action)));
  const ShortcutControl control{action, title, isDisabled ? "Off" : "Not set"};
  FormRow row{.id = FormIds::of(FormIds::shortcut, action),
              .picture = Miniatures::action(action, state.displayAspect),
              .title = title,
              .problem = control.problem(state, " Choose a different one.")};
  if (state.settings.hasCustomShortcut(action) || isDisabled) {
    row.controls.emplace_back(FormButton{.id = FormIds::of(FormIds::reset, action),
                                         .title = "Reset",
                                         .label = "Reset the shortcut for " + title});
  }
  row.controls.emplace_back(control.recorder(state));
  return row;
}

/// Everything by which a user may search for an action: its title, its group, and its keys as symbols, as
/// this desktop names them, and in words.
std::string searchable(SnapAction action, std::string_view group, const FormState& state) {
  static constexpr std::array words = std::to_array<std::pair<std::uint32_t, std::string_view>>({
      {HotKeySpec::control, " Control Ctrl"},
      {HotKeySpec::option, " Option Alt"},
      {HotKeySpec::shift, " Shift"},
      {HotKeySpec::cmd, " Command Super"},
  });
  std::string text = std::string(SnapActions::title(action)) + " " + std::string(group);
  const auto spec = state.settings.shortcut(action);
  if (!spec) return text;
  text += " " + KeyNames::describe(*spec) + " " + KeyNames::describe(*spec, state.wording);
  for (const auto& [bit, word] : words) {
    if ((spec->modifiers & bit) != 0) text += word;
  }
  return text;
}

bool hasTerms(std::string_view text, const std::vector<std::string_view>& terms) {
  const std::string key = UnicodeText::baseKey(text);
  return std::ranges::all_of(terms, [&](std::string_view term) {
    return key.find(UnicodeText::baseKey(term)) != std::string::npos;
  });
}

/// The words that must all be found. A combination such as "Ctrl+Alt+U" is one word per key.
std::vector<std::string_view> termsOf(std::string& search) {
  std::ranges::replace(search, '+', ' ');
  return UnicodeText::words(search);
}

bool isShown(SnapAction action, std::string_view group, const FormState& state,
             const std::vector<std::string_view>& terms) {
  return state.changedRows.contains(FormIds::of(FormIds::shortcut, action)) ||
         hasTerms(searchable(action, group, state), terms);
}

/// The order of the groups in this section is that of the actions themselves.
std::vector<ActionGroup> inActionOrder() {
  std::vector<ActionGroup> groups(ActionGroup::all().begin(), ActionGroup::all().end());
  std::ranges::sort(groups, {}, [](const ActionGroup& group) { return std::ranges::min(group.actions); });
  return groups;
}

}  // namespace

FormSection FormSections::shortcuts(const FormState& state) {
  FormSection section{
      .id = "shortcuts",
      .title = "Shortcuts",
      .symbol = FormSymbol::keyboard,
      .help = "Click a shortcut, then press the keys you want. Escape cancels, Delete turns it off.",
      .search = FormTextField{.id = std::string(FormIds::search),
                              .label = "Search shortcuts",
                              .text = state.search,
                              .placeholder = "Search by name or key",
                              .isSearch = true}};
  std::string search = state.search;
  const auto terms = termsOf(search);
  for (const ActionGroup& group : inActionOrder()) {
    FormGroup shown{.id = std::string(group.title), .heading = std::string(group.title)};
    for (const SnapAction action : SnapActions::all()) {
      if (std::ranges::find(group.actions, action) == group.actions.end()) continue;
      if (isShown(action, group.title, state, terms)) shown.rows.push_back(shortcutRow(action, state));
    }
    if (!shown.rows.empty()) section.groups.push_back(std::move(shown));
  }
  if (section.groups.empty()) section.emptyText = "No shortcut matches “" + state.search + "”.";
  return section;
}

}  // namespace tilwin
