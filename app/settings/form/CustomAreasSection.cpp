#include <cmath>
#include <string>
#include <string_view>
#include <utility>

#include "app/settings/form/AreaFractions.h"
#include "app/settings/form/FormIds.h"
#include "app/settings/form/FormSections.h"
#include "app/settings/form/Miniatures.h"
#include "app/settings/form/ShortcutControl.h"

namespace tilwin {
namespace {

FormRow nameRow(const CustomArea& area) {
  const std::string id = FormIds::of(FormIds::areaName, area.id);
  return {.id = id,
          .title = "Name",
          .controls = {FormTextField{.id = id, .label = "Name of " + area.name, .text = area.name},
                       FormButton{.id = FormIds::of(FormIds::areaDelete, area.id),
                                  .label = "Delete " + area.name,
                                  .symbol = FormSymbol::trash}}};
}

FormRow fractionRow(const AreaFraction& fraction, const CustomArea& area) {
  const std::string id = FormIds::of(fraction.kind, area.id);
  const double value = area.rect.*fraction.value;
  FormSlider slider{.id = id, .label = std::string(fraction.title) + " of " + area.name, .value = value};
  slider.caption = std::to_string(std::llround(value * 100)) + "%";
  return {.id = id, .title = std::string(fraction.title), .controls = {std::move(slider)}};
}

FormRow shortcutRow(const CustomArea& area, const FormState& state) {
  const ShortcutControl control{area.id, area.name, "No shortcut"};
  return {.id = FormIds::of(FormIds::shortcut, area.id),
          .title = "Shortcut",
          .controls = {control.recorder(state)},
          .problem = control.problem(state)};
}

FormGroup areaGroup(const CustomArea& area, const FormState& state) {
  FormGroup group{.id = FormIds::of("area", area.id)};
  group.picture = Miniatures::area(area, FormIds::of(FormIds::areaPicture, area.id), state.displayAspect);
  group.rows.push_back(nameRow(area));
  for (const AreaFraction& fraction : areaFractions) group.rows.push_back(fractionRow(fraction, area));
  group.rows.push_back(shortcutRow(area, state));
  return group;
}

FormGroup addGroup(const TilwinSettings& settings) {
  const bool isFull = settings.customAreas.size() >= TilwinSettings::maximumAreas;
  FormRow row{.id = std::string(FormIds::addArea),
              .controls = {FormButton{
                  .id = std::string(FormIds::addArea), .title = "Add an area", .isEnabled = !isFull}}};
  if (isFull) row.note = "Tilwin keeps up to 12 custom areas.";
  return {.id = "add", .rows = {std::move(row)}};
}

}  // namespace

FormSection FormSections::customAreas(const FormState& state) {
  FormSection section{.id = "customAreas", .title = "Custom areas", .symbol = FormSymbol::area};
  section.help = state.wording.text(
      "Your own places on the screen, each with a name and, if you like, a shortcut. "
      "You can also save the front window as an area from the menu bar.");
  for (const CustomArea& area : state.settings.customAreas) section.groups.push_back(areaGroup(area, state));
  section.groups.push_back(addGroup(state.settings));
  return section;
}

}  // namespace tilwin
