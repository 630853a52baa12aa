#include <string>
#include <utility>

#include "app/settings/form/FormIds.h"
#include "app/settings/form/FormSections.h"

namespace tilwin {
namespace {

std::string countLine(std::size_t drags) {
  return std::to_string(drags) + (drags == 1 ? " drag" : " drags") + " recorded so far.";
}

}  // namespace

FormSection FormSections::dragStatistics(const FormState& state) {
  const Wording& wording = state.wording;
  FormRow toggle{.id = std::string(FormIds::shadowRecording)};
  toggle.controls = {FormToggle{.id = std::string(FormIds::shadowRecording),
                                .title = wording.text("Record drag statistics on this Mac"),
                                .isOn = state.settings.shadowRecording}};
  toggle.note = wording.text(
      "Off by default. When on, Tilwin notes how each drag that ends near a screen edge moved "
      "(distance, speed, timing), whether it snapped, and whether you undid it within a few seconds. "
      "It never records app names, window titles or what is in a window. "
      "The file stays on this Mac and Tilwin does not send it anywhere. "
      "It changes nothing about how snapping works; it only lets you check, later, "
      "whether a smarter rule would suit the way you drag.");
  FormRow count{.id = "shadowData", .title = countLine(state.shadowDrags)};
  FormRow actions{.id = "shadowActions"};
  actions.controls = {
      FormButton{.id = std::string(FormIds::showShadowData),
                 .title = wording.text("Show recorded data in Finder")},
      FormButton{.id = std::string(FormIds::deleteShadowData), .title = "Delete recorded data"}};
  FormSection section{.id = "dragStatistics", .title = "Drag statistics", .symbol = FormSymbol::statistics};
  section.groups = {{.id = "statistics", .rows = {std::move(toggle), std::move(count), std::move(actions)}}};
  return section;
}

std::vector<FormSection> FormSections::all(const FormState& state) {
  return {spacing(state), behavior(state), shortcuts(state), customAreas(state), dragStatistics(state)};
}

}  // namespace tilwin
