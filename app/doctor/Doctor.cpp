#include "app/doctor/Doctor.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <variant>

#include "app/doctor/FileLooks.h"
#include "core/settings/ShortcutRules.h"
#include "core/snap/actions/SnapAction.h"

namespace tilwin {
namespace {

constexpr std::string_view settingsName = "settings";

std::string actionOf(const ShortcutOwner& owner) {
  const auto* const action = std::get_if<SnapAction>(&owner);
  return action == nullptr ? std::string() : std::string(SnapActions::rawValue(*action));
}

std::string areaOf(const ShortcutOwner& owner, const TilwinSettings& settings) {
  const auto* const id = std::get_if<Uuid>(&owner);
  if (id == nullptr) return {};
  const auto area = std::ranges::find(settings.customAreas, *id, &CustomArea::id);
  return area == settings.customAreas.end() ? std::string() : area->name;
}

}  // namespace

std::string Doctor::report(DoctorReport::Names names) { return DoctorReport::text(diagnose(), names); }

Diagnosis Doctor::diagnose() {
  // Some adapters say nothing of a file that is not of their format.
  const auto areUnreadable = [this](const FileFacts& file) {
    return file.what == settingsName && file.isReadable && file.size > 0 &&
           !parts_.userDefaults.data(SettingsStore::key);
  };
  const SystemFacts system = parts_.system.facts();
  const auto tiling = parts_.userDefaults.flag("com.apple.WindowManager", "EnableTilingByEdgeDrag");
  const auto all = files(system);
  return {.isRunning = instance_.has_value(),
          .mayMoveWindows = parts_.trust.isTrusted(),
          .system = system,
          .desktop = parts_.desktop.facts(),
          .displays = parts_.windows.displays(),
          .shortcuts = shortcuts(),
          .presses = presses(),
          .files = all,
          .areSettingsUnreadable =
              SettingsStore::areUnreadable(parts_.userDefaults) || std::ranges::any_of(all, areUnreadable),
          .isIconShown = instance_ ? instance_->statusItem.isShown() : std::nullopt,
          .tilesAtEdgesToo = tiling.value_or(false),
          .wording = parts_.words.wording()};
}

std::vector<ShortcutFacts> Doctor::shortcuts() const {
  using State = ShortcutFacts::State;
  const TilwinSettings& settings = parts_.store.settings.get();
  const auto& unavailable = parts_.store.unavailable.get();
  std::vector<ShortcutFacts> facts;
  for (const auto& [owner, keys] : settings.shortcutsInForce()) {
    auto state = instance_ ? State::works : State::unknown;
    if (unavailable.contains(owner)) state = State::refused;
    if (ShortcutRules::usedEarlier(owner, settings)) state = State::usedEarlier;
    facts.push_back(
        {.keys = keys, .action = actionOf(owner), .area = areaOf(owner, settings), .state = state});
  }
  return facts;
}

std::vector<PressFacts> Doctor::presses() const {
  std::vector<PressFacts> facts;
  if (!instance_) return facts;
  std::ranges::transform(instance_->hotKeys.presses(), std::back_inserter(facts),
                         [](const HotKeyCenter::Press& press) {
                           return PressFacts{actionOf(press.owner), press.received, press.done};
                         });
  return facts;
}

std::vector<FileFacts> Doctor::files(const SystemFacts& system) {
  std::vector<FileFacts> facts;
  if (system.settingsFile) facts.push_back(looksOf(std::string(settingsName), *system.settingsFile, false));
  if (const auto folder = parts_.bundle.applicationSupport()) {
    facts.push_back(looksOf("layouts", *folder / "Tilwin" / "layouts.json", false));
    facts.push_back(looksOf("log of drags", *folder / "Tilwin" / "shadow.jsonl", true));
  }
  if (system.socket) facts.push_back(looksOf("socket", *system.socket, true));
  return facts;
}

}  // namespace tilwin
