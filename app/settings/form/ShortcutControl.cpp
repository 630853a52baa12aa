#include "app/settings/form/ShortcutControl.h"

#include "app/settings/form/FormIds.h"
#include "core/settings/KeyNames.h"
#include "core/settings/ShortcutRules.h"

namespace tilwin {

FormRecorder ShortcutControl::recorder(const FormState& state) const {
  const auto spec = state.settings.shortcut(owner);
  FormRecorder result{.id = FormIds::of(FormIds::shortcut, owner)};
  result.isRecording = state.recording == result.id;
  result.isEmpty = !spec;
  result.label = "Shortcut for " + std::string(name);
  result.title = spec ? KeyNames::describe(*spec, state.wording) : std::string(emptyTitle);
  if (result.isRecording) result.title = "Press keys…";
  return result;
}

std::string ShortcutControl::problem(const FormState& state, std::string_view advice) const {
  const auto rejected = state.problems.find(FormIds::of(FormIds::shortcut, owner));
  if (rejected != state.problems.end()) return rejected->second;
  if (!state.unavailable.contains(owner)) return {};
  if (const auto first = ShortcutRules::usedEarlier(owner, state.settings)) {
    return ShortcutRules::message(*first, state.wording);
  }
  return "Another app already uses this shortcut, so it does not work." + std::string(advice);
}

}  // namespace tilwin
