#include "app/menu/MenuCommands.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "app/menu/StatusMenu.h"

namespace tilwin {

struct MenuCommands::Entry {
  std::string_view command;
  void (*run)(MenuCommands& commands, const std::string& argument);
};

MenuCommands::MenuCommands(const Parts& parts)
    : parts_(parts),
      dialogs_(parts.platform.dialogs, parts.platform.words),
      layoutCommands_(parts.layouts, dialogs_, parts.platform.workspace) {}

MenuModel MenuCommands::menu() {
  parts_.windows.menuOpens();
  const UpdaterService& updater = parts_.updater;
  return StatusMenu{.settings = parts_.store.settings.get(),
                    .userLayouts = parts_.layouts.layouts().userLayouts(),
                    .frontmost = parts_.platform.workspace.frontmostApplication(),
                    .ownBundleIdentifier = parts_.platform.workspace.ownBundleIdentifier(),
                    .isTrusted = parts_.platform.trust.isTrusted(),
                    .hasUpdates = updater.hasStarted() || updater.canCheckForUpdates.get(),
                    .canCheckForUpdates = updater.canCheckForUpdates.get(),
                    .wording = parts_.platform.words.wording()}
      .model();
}

void MenuCommands::run(const MenuChoice& choice) {
  using Self = MenuCommands&;
  using Argument = const std::string&;
  static constexpr std::array entries = std::to_array<Entry>({
      {command::allowAccessibility, [](Self self, Argument) { self.parts_.platform.trust.ask(); }},
      {command::menuSnap, [](Self self, Argument argument) { self.snap(argument); }},
      {command::applyLayout, [](Self self, Argument argument) { self.layoutCommands_.apply(argument); }},
      {command::saveArrangement, [](Self self, Argument) { self.layoutCommands_.saveArrangement(); }},
      {command::describeLayout, [](Self self, Argument) { self.layoutCommands_.describe(); }},
      {command::deleteLayout, [](Self self, Argument argument) { self.layoutCommands_.remove(argument); }},
      {command::menuArea, [](Self self, Argument argument) { self.runAreaNamed(argument); }},
      {command::saveWindowAsArea, [](Self self, Argument) { self.saveWindowAsArea(); }},
      {command::toggleIgnore, [](Self self, Argument argument) { self.toggleIgnore(argument); }},
      {command::showSettings, [](Self self, Argument) { self.showSettings(); }},
      {command::checkUpdates, [](Self self, Argument) { self.parts_.updater.checkForUpdates(); }},
      {command::quit, [](Self self, Argument) { self.parts_.platform.mainQueue.stop(0); }},
  });
  const auto entry = std::ranges::find(entries, choice.command, &Entry::command);
  if (entry == entries.end()) return;
  const CommandWindows::Command running(parts_.windows);
  entry->run(*this, choice.argument);
}

void MenuCommands::snap(const std::string& rawValue) {
  if (const auto action = SnapActions::fromRawValue(rawValue)) parts_.controller.perform(*action);
}

void MenuCommands::runAreaNamed(const std::string& id) {
  if (const auto parsed = Uuid::parse(id)) runArea(*parsed);
}

void MenuCommands::runArea(const Uuid& id) {
  const auto& areas = parts_.store.settings.get().customAreas;
  const auto area = std::ranges::find(areas, id, &CustomArea::id);
  if (area != areas.end()) parts_.controller.snap(*area);
}

void MenuCommands::toggleIgnore(const std::string& bundleID) {
  TilwinSettings settings = parts_.store.settings.get();
  if (std::erase(settings.ignoredApps, bundleID) == 0) {
    if (settings.ignoredApps.size() >= TilwinSettings::maximumIgnored) {
      return dialogs_.tell({.title = "Too many applications",
                            .message = "Tilwin leaves up to 100 applications alone. Let it move the windows "
                                       "of one of them first."});
    }
    settings.ignoredApps.push_back(bundleID);
  }
  parts_.store.settings.set(std::move(settings));
}

void MenuCommands::saveWindowAsArea() {
  if (parts_.store.settings.get().customAreas.size() >= TilwinSettings::maximumAreas) {
    return dialogs_.tell({.title = "Too many areas",
                          .message = "Tilwin keeps up to 12 custom areas. Delete one in Settings first."});
  }
  if (!parts_.platform.trust.isTrusted()) return;
  const auto name =
      dialogs_.ask("Save this window as an area",
                   "Name it, for example “Reading column”. Place the window first; Tilwin saves its size "
                   "and position as a fraction of the screen.");
  if (!name) return;
  auto area = parts_.controller.captureFocusedWindow(*name);
  if (!area) {
    return dialogs_.tell(
        {.title = "No window to save", .message = "Bring the window you want to the front, then try again."});
  }
  TilwinSettings settings = parts_.store.settings.get();
  settings.customAreas.push_back(*std::move(area));
  parts_.store.settings.set(std::move(settings));
}

}  // namespace tilwin
