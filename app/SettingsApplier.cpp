#include "app/SettingsApplier.h"

#include <cstddef>
#include <string>
#include <utility>

#include "app/settings/ControllerSettings.h"
#include "core/settings/KeyNames.h"
#include "core/settings/ShortcutRules.h"

namespace tilwin {

void SettingsApplier::apply() {
  const TilwinSettings settings = services_.store.settings.get();
  handTo(services_.controller, settings);
  registerIfChanged(settings);
  services_.statusItem.setVisible(settings.showMenuBarIcon);
  services_.recording.apply(settings.shadowRecording);
  services_.drag.shadow = services_.recording.recorder();
  services_.layouts.setRestoring(settings.restoreOnDisplayChange);
}

void SettingsApplier::registerIfChanged(const TilwinSettings& settings) {
  if (recordingShortcut_) return;
  auto hotKeys = HotKeyFingerprint::of(settings);
  if (lastHotKeys_ == hotKeys) return;
  registerHotKeys(settings);
  lastHotKeys_ = std::move(hotKeys);
}

void SettingsApplier::registerHotKeys(const TilwinSettings& settings) {
  auto refused = services_.hotKeyCenter.registerShortcuts(settings);
  logShortcuts(settings, refused);
  services_.store.unavailable.set(std::move(refused));
}

void SettingsApplier::setRecordingShortcut(bool recording) {
  recordingShortcut_ = recording;
  if (recording) return;
  if (std::exchange(registersAgainLater_, false)) return registerAgain();
  registerIfChanged(services_.store.settings.get());
}

void SettingsApplier::registerAgain() {
  if (recordingShortcut_) {
    registersAgainLater_ = true;
    return;
  }
  const TilwinSettings settings = services_.store.settings.get();
  auto refused = services_.hotKeyCenter.registerShortcuts(settings);
  lastHotKeys_ = HotKeyFingerprint::of(settings);
  if (refused == services_.store.unavailable.get()) return;
  logShortcuts(settings, refused);
  services_.store.unavailable.set(std::move(refused));
}

void SettingsApplier::retryRefused() {
  if (!services_.store.unavailable.get().empty()) registerAgain();
}

void SettingsApplier::logShortcuts(const TilwinSettings& settings,
                                   const HotKeyCenter::OwnerSet& refused) const {
  const auto wanted = settings.shortcutsInForce();
  const Wording wording = services_.words.wording();
  std::size_t working = wanted.size();
  std::string taken;
  std::string twice;
  for (const auto& [owner, spec] : wanted) {
    if (!refused.contains(owner)) continue;
    --working;
    std::string& list = ShortcutRules::usedEarlier(owner, settings) ? twice : taken;
    list += (list.empty() ? " " : ", ") + KeyNames::describe(spec, wording);
  }
  services_.log.write("Tilwin: " + std::to_string(working) + " of " + std::to_string(wanted.size()) +
                      " shortcuts work" + (twice.empty() ? "" : "; the settings have twice" + twice) +
                      (taken.empty() ? "" : "; another program holds" + taken));
}

}  // namespace tilwin
