#include "app/keys/TakenKeysNotice.h"

#include <cstddef>
#include <string>
#include <utility>

#include "core/settings/KeyNames.h"
#include "core/settings/ShortcutRules.h"

namespace tilwin {
namespace {

/// Named in the text; more of them are only counted.
constexpr std::size_t mostNamed = 3;

/// Of what is refused, the shortcuts that the user has not chosen.
std::vector<HotKeySpec> takenDefaults(const TilwinSettings& settings, const HotKeyCenter::OwnerSet& refused) {
  const TilwinSettings defaults;
  std::vector<HotKeySpec> taken;
  for (const auto& [owner, spec] : settings.shortcutsInForce()) {
    const bool isDefault = defaults.shortcut(owner) == spec && !ShortcutRules::usedEarlier(owner, settings);
    if (isDefault && refused.contains(owner)) taken.push_back(spec);
  }
  return taken;
}

}  // namespace

void TakenKeysNotice::tellOnce(const TilwinSettings& settings, const HotKeyCenter::OwnerSet& refused,
                               std::function<void()> showShortcuts) {
  if (notifications_ == nullptr || refused.empty()) return;
  const auto taken = takenDefaults(settings, refused);
  if (taken.empty() || defaults_.data(key)) return;
  notifications_->show(
      about(taken), [&defaults = defaults_] { defaults.setData(key, "told"); }, std::move(showShortcuts));
}

Notification TakenKeysNotice::about(const std::vector<HotKeySpec>& taken) const {
  const bool isOne = taken.size() == 1;
  const Wording wording = words_.wording();
  std::string names;
  for (std::size_t index = 0; index < taken.size() && index < mostNamed; ++index) {
    names += (index == 0 ? "" : ", ") + KeyNames::describe(taken[index], wording);
  }
  if (taken.size() > mostNamed) names += " and " + std::to_string(taken.size() - mostNamed) + " more";
  return {.title = isOne ? "A shortcut of Tilwin is taken"
                         : std::to_string(taken.size()) + " shortcuts of Tilwin are taken",
          .text = "Your window manager or another program holds " + names + ". " +
                  (isOne ? "It does nothing" : "They do nothing") + " in Tilwin until you change that.",
          .button = "Show Shortcuts"};
}

}  // namespace tilwin
