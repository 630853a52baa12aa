#include "app/AppDelegate.h"

#include <string>
#include <variant>

#include "core/settings/KeyNames.h"

namespace tilwin {

AppDelegate::AppDelegate(Platform& platform)
    : platform_(platform),
      controller_(platform.windows),
      hotKeyCenter_(platform.hotKeys, platform.mainQueue) {}

void AppDelegate::start() {
  hotKeyCenter_.onTarget = [this](const ShortcutOwner& owner) { perform(owner); };
  logShortcuts(hotKeyCenter_.registerShortcuts(settings_));
}

void AppDelegate::perform(const ShortcutOwner& owner) {
  if (const auto* action = std::get_if<SnapAction>(&owner)) controller_.perform(*action);
}

void AppDelegate::logShortcuts(const HotKeyCenter::OwnerSet& refused) const {
  std::size_t wanted = 0;
  std::string taken;
  for (const auto action : SnapActions::all()) {
    const auto spec = settings_.shortcut(action);
    if (!spec) continue;
    ++wanted;
    if (refused.contains(action)) taken += " " + KeyNames::describe(*spec);
  }
  platform_.log.write("Tilwin: " + std::to_string(wanted - refused.size()) + " of " + std::to_string(wanted) +
                      " shortcuts work" + (taken.empty() ? "" : "; another program holds" + taken));
}

}  // namespace tilwin
