#include "app/menu/StatusMenu.h"

#include <algorithm>
#include <utility>

#include "app/actions/ActionGroups.h"
#include "core/settings/KeyNames.h"

namespace tilwin {
namespace {

using Items = std::vector<MenuItem>;

MenuItem entry(std::string title, std::string_view command, std::string argument = {}) {
  return MenuItem::command(std::move(title), {std::string(command), std::move(argument)});
}

std::string withShortcut(std::string title, const std::optional<HotKeySpec>& shortcut,
                         const Wording& wording) {
  if (shortcut) title += "    " + KeyNames::describe(*shortcut, wording);
  return title;
}

MenuItem actionsMenu(const ActionGroup& group, const StatusMenu& shown) {
  Items items;
  for (const SnapAction action : group.actions) {
    std::string title(SnapActions::title(action));
    title = withShortcut(std::move(title), shown.settings.shortcut(action), shown.wording);
    items.push_back(entry(std::move(title), command::menuSnap, std::string(SnapActions::rawValue(action))));
  }
  return MenuItem::submenu(std::string(group.title), std::move(items));
}

Items entriesFor(const std::vector<Layout>& layouts, std::string_view command) {
  Items items;
  for (const Layout& layout : layouts) items.push_back(entry(layout.name, command, layout.id.text()));
  return items;
}

MenuItem layoutsMenu(const std::vector<Layout>& layouts) {
  Items items = entriesFor(layouts, command::applyLayout);
  if (!items.empty()) items.push_back(MenuItem::separator());
  items.push_back(entry("Save this arrangement…", command::saveArrangement));
  items.push_back(entry("Describe a layout…", command::describeLayout));
  if (!layouts.empty()) {
    items.push_back(MenuItem::submenu("Delete layout", entriesFor(layouts, command::deleteLayout)));
  }
  return MenuItem::submenu("Layouts", std::move(items));
}

MenuItem areasMenu(const StatusMenu& shown) {
  Items items;
  for (const CustomArea& area : shown.settings.customAreas) {
    items.push_back(
        entry(withShortcut(area.name, area.shortcut, shown.wording), command::menuArea, area.id.text()));
  }
  if (!items.empty()) items.push_back(MenuItem::separator());
  items.push_back(entry("Save this window as an area…", command::saveWindowAsArea));
  return MenuItem::submenu("Custom areas", std::move(items));
}

std::optional<MenuItem> ignoreEntry(const StatusMenu& shown) {
  if (!shown.frontmost) return std::nullopt;
  const auto& identifier = shown.frontmost->bundleIdentifier;
  if (!identifier || identifier == shown.ownBundleIdentifier) return std::nullopt;
  const auto& ignored = shown.settings.ignoredApps;
  const bool isIgnored = std::ranges::find(ignored, *identifier) != ignored.end();
  if (!isIgnored && identifier->size() > TilwinSettings::longestIgnored) return std::nullopt;
  return MenuItem::command("Never move windows of " + shown.frontmost->localizedName.value_or(*identifier),
                           {std::string(command::toggleIgnore), *identifier}, isIgnored);
}

}  // namespace

MenuModel StatusMenu::model() const {
  Items items;
  if (!isTrusted) items.push_back(entry("Allow Accessibility…", command::allowAccessibility));
  items.push_back(MenuItem::separator());
  for (const ActionGroup& group : ActionGroup::all()) items.push_back(actionsMenu(group, *this));
  items.push_back(MenuItem::separator());
  items.push_back(layoutsMenu(userLayouts));
  items.push_back(areasMenu(*this));
  items.push_back(MenuItem::separator());
  if (auto ignore = ignoreEntry(*this)) items.push_back(*std::move(ignore));
  items.push_back(entry("Settings…", command::showSettings));
  if (hasUpdates) {
    items.push_back(entry("Check for Updates…", command::checkUpdates));
    items.back().isEnabled = canCheckForUpdates;
  }
  items.push_back(entry("Quit Tilwin", command::quit));
  return {std::move(items)};
}

}  // namespace tilwin
