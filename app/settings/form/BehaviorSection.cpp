#include <string>
#include <string_view>
#include <utility>

#include "app/settings/form/FormIds.h"
#include "app/settings/form/FormSections.h"

namespace tilwin {
namespace {

FormRow toggleRow(std::string_view id, std::string title, bool isOn) {
  return {.id = std::string(id),
          .controls = {FormToggle{.id = std::string(id), .title = std::move(title), .isOn = isOn}}};
}

FormRow nativeTilingRow(const Wording& wording) {
  return {.id = "nativeTiling",
          .controls = {FormButton{.id = std::string(FormIds::openDesktopAndDock),
                                  .title = wording.text("Open Desktop & Dock settings")}},
          .note = wording.text(
              "macOS is also snapping windows when you drag them to an edge, so you may see both. "
              "Turn off “Drag windows to screen edges to tile” in Desktop & Dock.")};
}

}  // namespace

FormSection FormSections::behavior(const FormState& state) {
  const TilwinSettings& settings = state.settings;
  const Wording& wording = state.wording;
  FormGroup group{.id = "behavior"};
  const auto add = [&](std::string_view id, std::string_view title, bool isOn) -> FormRow& {
    return group.rows.emplace_back(toggleRow(id, wording.text(title), isOn));
  };
  add(FormIds::dragToSnap, "Drag a window to a screen edge or corner to snap it", settings.dragToSnap);
  add(FormIds::cycleWidths,
      "Press the same half shortcut again to step through half, two thirds and one third",
      settings.cycleWidths);
  add(FormIds::restoreOnDisplayChange, "Put windows back when a display is reconnected",
      settings.restoreOnDisplayChange);
  auto& icon = add(FormIds::showMenuBarIcon, "Show the menu bar icon", settings.showMenuBarIcon);
  if (!settings.showMenuBarIcon) icon.note = "While it is hidden, start Tilwin again to open this window.";
  add(FormIds::openAtLogin, "Open Tilwin when I log in", state.openAtLogin).note =
      state.loginNote.value_or("");
  if (state.nativeTilingOn) group.rows.push_back(nativeTilingRow(wording));
  return {
      .id = "behavior", .title = "Behavior", .symbol = FormSymbol::behavior, .groups = {std::move(group)}};
}

}  // namespace tilwin
