#include "app/AppDelegate.h"

#include <algorithm>
#include <string>
#include <utility>
#include <variant>

#include "core/settings/KeyNames.h"

namespace tilwin {

AppDelegate::AppDelegate(Platform& platform)
    : platform_(platform),
      store_(platform.userDefaults),
      controller_(platform.windows),
      hotKeyCenter_(platform.hotKeys, platform.mainQueue),
      recording_(platform.mainQueue, platform.bundle, controller_),
      drag_({platform.windows, platform.pointer, platform.overlay, platform.trust, platform.mainQueue},
            controller_),
      self_(std::make_shared<AppDelegate*>(this)) {}

void AppDelegate::start() {
  applySettings();
  settingsChanges_ = store_.settings.subscribe([this](const TilwinSettings&) {
    platform_.mainQueue.post([weak = std::weak_ptr(self_)] {
      if (const auto self = weak.lock()) (*self)->applySettings();
    });
  });
  hotKeyCenter_.onTarget = [this](const ShortcutOwner& owner) { perform(owner); };
  startDrags();
  if (!platform_.trust.isTrusted()) platform_.trust.ask();
}

void AppDelegate::startDrags() {
  drag_.isEnabled = [this] { return store_.settings.get().dragToSnap; };
  drag_.isIgnored = [this](const std::string& bundleID) { return isIgnored(bundleID); };
  drag_.isShadowOn = [this] { return store_.settings.get().shadowRecording; };
  drag_.start();
  platform_.screenChanges.onChange([weak = std::weak_ptr(self_)] {
    if (const auto self = weak.lock()) (*self)->drag_.displaysChanged();
  });
  platform_.mainQueue.onAboutToStop([weak = std::weak_ptr(self_)] {
    const auto self = weak.lock();
    if (self && (*self)->store_.settings.get().shadowRecording) (*self)->recording_.finish();
  });
}

bool AppDelegate::isIgnored(const std::string& bundleID) const {
  const auto& ignored = store_.settings.get().ignoredApps;
  return std::find(ignored.begin(), ignored.end(), bundleID) != ignored.end();
}

void AppDelegate::applySettings() {
  const TilwinSettings settings = store_.settings.get();
  controller_.outer = settings.outer;
  controller_.gap = settings.gap;
  controller_.cycleWidths = settings.cycleWidths;
  controller_.ignoredBundleIDs = {settings.ignoredApps.begin(), settings.ignoredApps.end()};
  registerHotKeys(settings);
  recording_.apply(settings.shadowRecording);
  drag_.shadow = recording_.recorder();
}

void AppDelegate::registerHotKeys(const TilwinSettings& settings) {
  auto hotKeys = HotKeyFingerprint::of(settings);
  if (lastHotKeys_ == hotKeys) return;
  lastHotKeys_ = std::move(hotKeys);
  auto refused = hotKeyCenter_.registerShortcuts(settings);
  logShortcuts(settings, refused);
  store_.unavailable.set(std::move(refused));
}

void AppDelegate::perform(const ShortcutOwner& owner) {
  if (const auto* action = std::get_if<SnapAction>(&owner)) controller_.perform(*action);
  if (const auto* area = std::get_if<Uuid>(&owner)) runArea(*area);
}

void AppDelegate::runArea(const Uuid& id) {
  const auto& areas = store_.settings.get().customAreas;
  const auto area = std::find_if(areas.begin(), areas.end(), [&](const auto& each) { return each.id == id; });
  if (area != areas.end()) controller_.snap(*area);
}

void AppDelegate::logShortcuts(const TilwinSettings& settings, const HotKeyCenter::OwnerSet& refused) const {
  const auto wanted = settings.shortcutsInForce();
  std::size_t working = wanted.size();
  std::string taken;
  for (const auto& [owner, spec] : wanted) {
    if (!refused.contains(owner)) continue;
    --working;
    taken += " " + KeyNames::describe(spec);
  }
  platform_.log.write("Tilwin: " + std::to_string(working) + " of " + std::to_string(wanted.size()) +
                      " shortcuts work" + (taken.empty() ? "" : "; another program holds" + taken));
}

}  // namespace tilwin
