#include "app/settings/SettingsView.h"

#include <algorithm>
#include <array>
#include <utility>
#include <variant>

#include "app/settings/form/AreaFractions.h"
#include "app/settings/form/FormIds.h"
#include "app/settings/form/FormSections.h"

namespace tilwin {
namespace {

constexpr std::uint32_t escape = 53;
constexpr std::array<std::uint32_t, 2> deleteKeys{51, 117};

struct Toggle {
  std::string_view id;
  bool TilwinSettings::*value;
};

constexpr std::array toggles = std::to_array<Toggle>({
    {FormIds::dragToSnap, &TilwinSettings::dragToSnap},
    {FormIds::cycleWidths, &TilwinSettings::cycleWidths},
    {FormIds::restoreOnDisplayChange, &TilwinSettings::restoreOnDisplayChange},
    {FormIds::showMenuBarIcon, &TilwinSettings::showMenuBarIcon},
    {FormIds::shadowRecording, &TilwinSettings::shadowRecording},
});

struct Distance {
  std::string_view id;
  double TilwinSettings::*value;
};

constexpr std::array distances = std::to_array<Distance>({
    {FormIds::outer, &TilwinSettings::outer},
    {FormIds::gap, &TilwinSettings::gap},
});

}  // namespace

SettingsView::SettingsView(SettingsStore& store, Actions actions, const Surroundings& surroundings)
    : store_(store), actions_(std::move(actions)), chosenSection_("spacing") {
  state_.nativeTilingOn = surroundings.nativeTilingOn;
  state_.displayAspect = surroundings.displayAspect;
  state_.wording = surroundings.wording;
  lookAgain();
}

SettingsView::~SettingsView() { stopRecording(); }

FormModel SettingsView::form() const {
  FormState shown = state_;
  shown.settings = store_.settings.get();
  shown.unavailable = store_.unavailable.get();
  return {.title = "Tilwin Settings", .sections = FormSections::all(shown), .chosenSection = chosenSection_};
}

void SettingsView::handle(const FormEvent& event) {
  std::visit([this](const auto& each) { on(each); }, event);
  if (onChange) onChange();
}

void SettingsView::lookAgain() {
  state_.shadowDrags = actions_.shadowCount();
  state_.openAtLogin = actions_.opensAtLogin();
  if (state_.openAtLogin) state_.loginNote.reset();
}

void SettingsView::on(const form::ButtonPressed& event) {
  if (event.id != state_.recording) stopRecording();
  const std::array plain = std::to_array<std::pair<std::string_view, std::function<void()>>>({
      {FormIds::openDesktopAndDock, actions_.openDesktopAndDock},
      {FormIds::showShadowData, actions_.showShadowData},
      {FormIds::deleteShadowData,
       [this] {
         actions_.deleteShadowData();
         state_.shadowDrags = actions_.shadowCount();
       }},
      {FormIds::addArea,
       [this] {
         change([](TilwinSettings& settings) {
           if (settings.customAreas.size() < TilwinSettings::maximumAreas) {
             settings.customAreas.push_back(CustomArea::starter("New area"));
           }
         });
       }},
  });
  const auto button = std::ranges::find(plain, event.id, &decltype(plain)::value_type::first);
  if (button != plain.end()) return button->second();
  if (const auto owner = FormIds::owner(event.id)) pressed(*owner, FormIds::kind(event.id), event.id);
}

void SettingsView::pressed(const ShortcutOwner& owner, std::string_view kind, const std::string& id) {
  if (kind == FormIds::shortcut) return state_.recording == id ? stopRecording() : startRecording(id);
  const auto* action = std::get_if<SnapAction>(&owner);
  const auto* area = std::get_if<Uuid>(&owner);
  if (kind == FormIds::reset && action != nullptr) {
    change([&](TilwinSettings& settings) { settings.resetShortcut(*action); });
    settle(FormIds::of(FormIds::shortcut, owner));
    actions_.retryRefused();
  } else if (kind == FormIds::areaDelete && area != nullptr) {
    change([&](TilwinSettings& settings) {
      std::erase_if(settings.customAreas, [&](const CustomArea& each) { return each.id == *area; });
    });
  }
}

void SettingsView::on(const form::ToggleChanged& event) {
  if (event.id == FormIds::openAtLogin) return changeOpenAtLogin(event.isOn);
  const auto toggle = std::ranges::find(toggles, event.id, &Toggle::id);
  if (toggle == toggles.end()) return;
  change([&](TilwinSettings& settings) { settings.*toggle->value = event.isOn; });
}

void SettingsView::changeOpenAtLogin(bool wanted) {
  state_.loginNote.reset();
  state_.openAtLogin = actions_.setOpenAtLogin(wanted, state_.loginNote);
}

void SettingsView::on(const form::SliderMoved& event) {
  const auto distance = std::ranges::find(distances, event.id, &Distance::id);
  if (distance != distances.end()) {
    return change([&](TilwinSettings& settings) { settings.*distance->value = event.value; });
  }
  const auto fraction = std::ranges::find(areaFractions, FormIds::kind(event.id), &AreaFraction::kind);
  const auto owner = FormIds::owner(event.id);
  if (fraction == areaFractions.end() || !owner) return;
  changeArea(*owner, [&](CustomArea& area) { area.rect.*fraction->value = event.value; });
}

void SettingsView::on(const form::TextChanged& event) {
  if (event.id == FormIds::search) {
    state_.search = event.text;
    state_.changedRows.clear();
  } else if (const auto owner = FormIds::owner(event.id);
             owner && FormIds::kind(event.id) == FormIds::areaName) {
    changeArea(*owner, [&](CustomArea& area) { area.name = CustomArea::keptName(event.text); });
  }
}

void SettingsView::on(const form::PictureGrabbed& event) {
  const auto owner = FormIds::owner(event.id);
  if (!owner) return;
  const auto& areas = store_.settings.get().customAreas;
  // The same one that is edited, should two have this id.
  const auto area = std::ranges::find(areas, *owner, [](const auto& each) { return ShortcutOwner(each.id); });
  if (area != areas.end()) areaDrag_.emplace(CustomArea::clamped(area->rect), event.at, event.reach);
}

void SettingsView::on(const form::PictureDragged& event) {
  const auto owner = FormIds::owner(event.id);
  if (!owner || !areaDrag_) return;
  changeArea(*owner, [&](CustomArea& area) { area.rect = areaDrag_->with(event.at); });
}

void SettingsView::on(const form::SectionChosen& event) {
  stopRecording();
  state_.changedRows.clear();
  chosenSection_ = event.id;
  state_.shadowDrags = actions_.shadowCount();
}

void SettingsView::startRecording(const std::string& id) {
  stopRecording();
  actions_.retryRefused();
  state_.recording = id;
  actions_.shortcutRecording(true);
}

void SettingsView::stopRecording() {
  if (state_.recording.empty()) return;
  state_.recording.clear();
  actions_.shortcutRecording(false);
}

void SettingsView::on(const form::KeyPressed& event) {
  if (state_.recording.empty()) return;
  const std::string recorder = state_.recording;
  if (std::ranges::find(deleteKeys, event.keys.keyCode) != deleteKeys.end()) {
    clear(recorder);
  } else if (event.keys.keyCode != escape) {
    assign(event.keys, recorder);
  }
  stopRecording();
}

void SettingsView::assign(const HotKeySpec& keys, const std::string& recorder) {
  const auto owner = FormIds::owner(recorder);
  if (!owner) return;
  std::optional<ShortcutRules::Problem> problem;
  change([&](TilwinSettings& settings) {
    problem = std::visit([&](const auto& each) { return settings.assign(keys, each); }, *owner);
  });
  if (problem) {
    state_.problems[recorder] = ShortcutRules::message(*problem, state_.wording);
  } else {
    settle(recorder);
  }
}

void SettingsView::clear(const std::string& recorder) {
  const auto owner = FormIds::owner(recorder);
  if (!owner) return;
  if (const auto* action = std::get_if<SnapAction>(&*owner)) {
    change([&](TilwinSettings& settings) { settings.clearShortcut(*action); });
  } else {
    changeArea(*owner, [](CustomArea& area) { area.shortcut.reset(); });
  }
  settle(recorder);
}

/// The recorder's shortcut is as the user wants it.
void SettingsView::settle(const std::string& recorder) {
  state_.problems.erase(recorder);
  state_.changedRows.insert(recorder);
}

/// Stores the edited settings, unless the edit changed nothing.
void SettingsView::change(const std::function<void(TilwinSettings&)>& edit) {
  TilwinSettings settings = store_.settings.get();
  edit(settings);
  if (settings != store_.settings.get()) store_.settings.set(std::move(settings));
}

void SettingsView::changeArea(const ShortcutOwner& owner, const std::function<void(CustomArea&)>& edit) {
  change([&](TilwinSettings& settings) {
    const auto area = std::ranges::find_if(
        settings.customAreas, [&](const CustomArea& each) { return ShortcutOwner(each.id) == owner; });
    if (area != settings.customAreas.end()) edit(*area);
  });
}

}  // namespace tilwin
