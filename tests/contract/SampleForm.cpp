#include "tests/contract/SampleForm.h"

#include <array>
#include <cmath>
#include <stdexcept>
#include <utility>
#include <vector>

#include "core/settings/KeyNames.h"
#include "core/settings/TilwinSettings.h"
#include "core/snap/actions/SnapAction.h"

namespace tilwin::contract {
namespace {

constexpr double displayRatio = 1.6;

FormSection spacing() {
  FormPicture picture{.label = "Two tiles with the margin and the gap"};
  picture.tiles = {{{0.03, 0.048, 0.455, 0.904}, true}, {{0.515, 0.048, 0.455, 0.904}, false}};
  FormRow margin{.id = "margin-row", .title = "Screen margin"};
  margin.controls = {FormSlider{.id = "margin",
                                .label = "Screen margin",
                                .value = 8,
                                .maximum = 32,
                                .step = 1,
                                .caption = "8 points around the screen"}};
  FormRow gap{.id = "gap-row", .title = "Gap between windows"};
  gap.controls = {FormSlider{.id = "gap",
                             .label = "Gap between windows",
                             .value = 8,
                             .maximum = 32,
                             .step = 1,
                             .caption = "8 points between tiles"}};
  FormGroup group{.id = "spacing-group", .picture = picture, .rows = {margin, gap}};
  return {.id = "spacing", .title = "Spacing", .symbol = FormSymbol::spacing, .groups = {group}};
}

FormRow toggleRow(const std::string& id, const std::string& title, bool isOn) {
  FormRow row{.id = id + "-row"};
  row.controls = {FormToggle{id, title, isOn}};
  return row;
}

FormSection behavior() {
  FormGroup group{.id = "behavior-group"};
  group.rows = {
      toggleRow("drag", "Drag a window to a screen edge or corner to snap it", true),
      toggleRow("cycle", "Press the same half shortcut again to step through half, two thirds and one third",
                true),
      toggleRow("restore", "Put windows back when a display is reconnected", true),
      toggleRow("icon", "Show the menu bar icon", true),
      toggleRow("login", "Open Tilwin when I log in", false),
  };
  group.rows.back().note = "Your desktop did not turn this on. Install the program and try again.";
  FormRow native{.id = "native-row"};
  native.note =
      "Your desktop is also snapping windows when you drag them to an edge, so you may see both. Turn off "
      "“Drag "
      "windows to screen edges to tile” in its settings.";
  FormRow open{.id = "native-open-row"};
  open.controls = {FormButton{.id = "native-open", .title = "Open Desktop & Dock settings"}};
  FormGroup tiling{.id = "native-group", .heading = "Edge tiling", .rows = {native, open}};
  return {.id = "behavior", .title = "Behavior", .symbol = FormSymbol::behavior, .groups = {group, tiling}};
}

struct ShortcutGroup {
  const char* id;
  const char* heading;
  SnapAction first;
  SnapAction last;
};

constexpr std::array<ShortcutGroup, 6> shortcutGroups{{
    {"halves", "Halves", SnapAction::leftHalf, SnapAction::bottomHalf},
    {"quarters", "Quarters", SnapAction::topLeft, SnapAction::bottomRight},
    {"thirds", "Thirds", SnapAction::leftThird, SnapAction::rightTwoThirds},
    {"sixths", "Sixths", SnapAction::topLeftSixth, SnapAction::bottomRightSixth},
    {"fourths", "Fourths", SnapAction::firstFourth, SnapAction::rightThreeFourths},
    {"other", "Size and display", SnapAction::maximize, SnapAction::previousDisplay},
}};

FormPicture miniature(SnapAction action) {
  const Rect screen{0, 0, 1600, 1000};
  const auto frame = SnapActions::frame(action, {400, 250, 800, 500}, screen, 0, 0);
  return {.label = std::string(SnapActions::title(action)),
          .aspectRatio = displayRatio,
          .tiles = {{NormalizedRect::of(frame.value_or(Rect{480, 250, 640, 500}), screen), true}}};
}

FormRow shortcutRow(SnapAction action, const TilwinSettings& settings) {
  const std::string id(SnapActions::rawValue(action));
  const std::string title(SnapActions::title(action));
  FormRow row{.id = id, .picture = miniature(action), .title = title};
  const auto keys = settings.shortcut(action);
  FormRecorder recorder{.id = id + ".keys", .label = "Shortcut for " + title};
  recorder.title = keys ? KeyNames::describe(*keys) : "Not set";
  recorder.isEmpty = !keys;
  if (action == SnapAction::topHalf) recorder.title = "Off";
  if (action == SnapAction::bottomHalf) recorder.title = "Ctrl+Alt+Shift+Super+PageDown";
  if (action == SnapAction::topHalf || action == SnapAction::bottomHalf) {
    row.controls.emplace_back(FormButton{.id = id + ".reset", .title = "Reset", .label = "Reset " + title});
  }
  recorder.isEmpty = recorder.isEmpty || action == SnapAction::topHalf;
  row.controls.emplace_back(recorder);
  if (action == SnapAction::rightHalf) {
    row.problem = "Another app already uses this shortcut, so it does not work. Choose a different one.";
  }
  return row;
}

FormSection shortcuts() {
  const TilwinSettings settings;
  FormSection section{.id = "shortcuts", .title = "Shortcuts", .symbol = FormSymbol::keyboard};
  section.help = "Click a shortcut, then press the keys you want. Escape cancels, Delete turns it off.";
  section.search = FormTextField{
      .id = "search", .label = "Search shortcuts", .placeholder = "Search by name or keys", .isSearch = true};
  section.emptyText = "No shortcut has that name or these keys.";
  for (const auto& [id, heading, first, last] : shortcutGroups) {
    FormGroup group{.id = id, .heading = heading};
    for (const auto action : SnapActions::all()) {
      if (action >= first && action <= last) group.rows.push_back(shortcutRow(action, settings));
    }
    section.groups.push_back(group);
  }
  return section;
}

FormRow shareRow(const std::string& area, const std::string& name, double value) {
  FormRow row{.id = area + "." + name + "-row", .title = name};
  const auto percent = std::to_string(std::lround(value * 100)) + "%";
  row.controls = {FormSlider{.id = area + "." + name, .label = name, .value = value, .caption = percent}};
  return row;
}

FormGroup areaGroup(const std::string& id, const std::string& name, const NormalizedRect& rect) {
  FormRow naming{.id = id + ".name-row", .title = "Name"};
  naming.controls = {FormTextField{.id = id + ".name", .label = "Name", .text = name}};
  FormRow keys{.id = id + ".keys-row", .title = "Shortcut"};
  keys.controls = {
      FormRecorder{
          .id = id + ".keys", .title = "No shortcut", .label = "Shortcut for " + name, .isEmpty = true},
      FormButton{.id = id + ".delete", .label = "Delete " + name, .symbol = FormSymbol::trash}};
  FormPicture picture{.id = id + ".picture", .label = "Area " + name, .tiles = {{rect, true}}};
  return {.id = id,
          .picture = picture,
          .rows = {naming, shareRow(id, "Left", rect.x), shareRow(id, "Top", rect.y),
                   shareRow(id, "Width", rect.width), shareRow(id, "Height", rect.height), keys}};
}

FormSection areas() {
  FormSection section{.id = "areas", .title = "Custom areas", .symbol = FormSymbol::area};
  section.help =
      "Your own places on the screen, each with a name and, if you like, a shortcut. You can also save the "
      "front "
      "window as an area from the menu bar.";
  section.emptyText = "There are no areas yet.";
  FormGroup adding{.id = "adding"};
  adding.rows = {{.id = "adding-row", .controls = {FormButton{.id = "add", .title = "Add an area"}}}};
  section.groups = {areaGroup("area1", "Reading", {0.2, 0, 0.6, 1}),
                    areaGroup("area2", "Corner for the music", {0.7, 0.6, 0.3, 0.4}), adding};
  section.groups[1].rows.back().problem = "Another app already uses this shortcut, so it does not work.";
  return section;
}

FormSection statistics() {
  FormGroup group{.id = "statistics-group"};
  FormRow record = toggleRow("record", "Record drag statistics on this computer", false);
  record.note =
      "Off by default. When on, Tilwin notes how each drag that ends near a screen edge moved (distance, "
      "speed, "
      "timing), whether it snapped, and whether you undid it within a few seconds. It never records app "
      "names, "
      "window titles or what is in a window. The file stays on this computer and Tilwin does not send it "
      "anywhere. "
      "It changes nothing about how snapping works; it only lets you check, later, whether a smarter rule "
      "would "
      "suit the way you drag.";
  const FormRow count{.id = "count-row", .title = "1,234 drags recorded so far."};
  FormRow buttons{.id = "data-row"};
  buttons.controls = {FormButton{.id = "show-data", .title = "Show recorded data in file manager"},
                      FormButton{.id = "delete-data", .title = "Delete recorded data"}};
  group.rows = {record, count, buttons};
  return {
      .id = "statistics", .title = "Drag statistics", .symbol = FormSymbol::statistics, .groups = {group}};
}

[[noreturn]] void complain(const std::string& id) { throw std::logic_error("the form has no " + id); }

}  // namespace

FormModel sampleForm(const std::string& chosenSection) {
  return {.title = "Tilwin Settings",
          .sections = {spacing(), behavior(), shortcuts(), areas(), statistics()},
          .chosenSection = chosenSection};
}

FormSection& sectionIn(FormModel& form, const std::string& id) {
  for (auto& section : form.sections) {
    if (section.id == id) return section;
  }
  complain(id);
}

FormGroup& groupIn(FormModel& form, const std::string& id) {
  for (auto& section : form.sections) {
    for (auto& group : section.groups) {
      if (group.id == id) return group;
    }
  }
  complain(id);
}

FormRow& rowIn(FormModel& form, const std::string& id) {
  for (auto& section : form.sections) {
    for (auto& group : section.groups) {
      for (auto& row : group.rows) {
        if (row.id == id) return row;
      }
    }
  }
  complain(id);
}

FormPicture& pictureIn(FormModel& form, const std::string& id) {
  for (auto& section : form.sections) {
    for (auto& group : section.groups) {
      if (group.picture && group.picture->id == id) return *group.picture;
    }
  }
  complain(id);
}

FormTextField* findField(FormModel& form, const std::string& id) {
  for (auto& section : form.sections) {
    if (section.search && section.search->id == id) return &*section.search;
  }
  return findControl<FormTextField>(form, id);
}

}  // namespace tilwin::contract
