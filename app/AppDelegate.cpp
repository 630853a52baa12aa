#include "app/AppDelegate.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>
#include <variant>

#include "app/menu/MenuBarImage.h"

namespace tilwin {
namespace {

constexpr auto desktopAndDock = "x-apple.systempreferences:com.apple.Desktop-Settings.extension";

double aspectOfPrimaryDisplay(DesktopWindows& windows) {
  const auto displays = windows.displays();
  if (displays.empty() || displays.front().visibleFrame.height <= 0)
    return SettingsView::Surroundings().displayAspect;
  return displays.front().visibleFrame.width / displays.front().visibleFrame.height;
}

}  // namespace

AppDelegate::AppDelegate(Platform& platform)
    : platform_(platform),
      store_(platform.userDefaults, &platform.log),
      windows_(std::make_shared<CommandWindows>(platform.windows)),
      controller_(windows_),
      hotKeyCenter_(platform.hotKeys, platform.mainQueue),
      recording_(platform.mainQueue, platform.bundle),
      drag_({platform.windows, platform.pointer, platform.overlay, platform.trust, platform.mainQueue},
            controller_),
      layouts_({platform.mainQueue, platform.trust, platform.bundle, platform.log}, windows_, controller_),
      login_(platform.login, platform.log),
      applier_({store_, controller_, hotKeyCenter_, platform.statusItem, recording_, drag_, layouts_,
                platform.log, platform.words}),
      takenKeys_(platform.userDefaults, platform.notifications, platform.words),
      panel_(platform.settingsWindow, platform.mainQueue, store_, [this] { return makeSettingsView(); }),
      doctor_({store_, platform.userDefaults, *windows_, platform.trust, platform.bundle,
               platform.desktopReport, platform.systemReport, platform.words},
              Doctor::Instance{platform.statusItem, hotKeyCenter_}),
      commands_({store_, controller_, layouts_, *windows_, platform.trust, platform.workspace, platform.words,
                 doctor_},
                CommandRunner::Instance{[this] { showSettings(); }, [this] { platform_.mainQueue.stop(0); }}),
      events_({platform.mainQueue, store_, *windows_}),
      self_(std::make_shared<AppDelegate*>(this)) {}

void AppDelegate::start() {
  layouts_.load();
  updater_ = std::make_unique<UpdaterService>(platform_.bundle, platform_.updates, platform_.log);
  installStatusItem();
  applier_.apply();
  followSettings();
  startHotKeys();
  startDrags();
  followWindowsAndLayouts();
  layouts_.start();
  followDisplays();
  finishAtEnd();
  tellOfTakenKeys();
  if (!platform_.trust.isTrusted()) platform_.trust.ask();
}

void AppDelegate::installStatusItem() {
  menu_ = std::make_unique<MenuCommands>(
      MenuCommands::Parts{platform_, store_, controller_, *windows_, layouts_, *updater_});
  menu_->showSettings = [this] { showSettings(); };
  platform_.statusItem.install(
      menuBarImage(),
      [weak = std::weak_ptr(self_)] {
        const auto self = weak.lock();
        return self ? (*self)->menu_->menu() : MenuModel();
      },
      [weak = std::weak_ptr(self_)](const MenuChoice& choice) {
        if (const auto self = weak.lock()) (*self)->menu_->run(choice);
      });
}

void AppDelegate::followSettings() {
  settingsChanges_ = store_.settings.subscribe([this](const TilwinSettings&) {
    platform_.mainQueue.post([weak = std::weak_ptr(self_)] {
      if (const auto self = weak.lock()) (*self)->applier_.apply();
    });
  });
}

void AppDelegate::startHotKeys() {
  hotKeyCenter_.onTarget = [this](const ShortcutOwner& owner) { perform(owner); };
  platform_.hotKeys.setChangeHandler([weak = std::weak_ptr(self_)] {
    if (const auto self = weak.lock()) (*self)->applier_.registerAgain();
  });
}

void AppDelegate::startDrags() {
  drag_.isEnabled = [this] { return store_.settings.get().dragToSnap; };
  drag_.isIgnored = [this](const std::string& bundleID) { return isIgnored(bundleID); };
  drag_.isShadowOn = [this] { return store_.settings.get().shadowRecording; };
  drag_.start();
}

void AppDelegate::followWindowsAndLayouts() {
  controller_.onEvent = [this](std::int64_t window, SnapAction action) {
    recording_.actionPerformed(window, action);
    events_.snapped(window, action);
  };
  controller_.onArea = [this](std::int64_t window, const CustomArea& area) { events_.snapped(window, area); };
  layouts_.onChange = [this](LayoutChange change, const Layout& layout) {
    events_.layoutChanged(change, layout);
  };
}

void AppDelegate::followDisplays() {
  platform_.screenChanges.onChange([weak = std::weak_ptr(self_)] {
    const auto self = weak.lock();
    if (!self) return;
    (*self)->drag_.displaysChanged();
    (*self)->layouts_.displaysChanged();
    (*self)->events_.displaysChanged();
  });
}

void AppDelegate::finishAtEnd() {
  platform_.mainQueue.onAboutToStop([weak = std::weak_ptr(self_)] {
    const auto self = weak.lock();
    if (self && (*self)->store_.settings.get().shadowRecording) (*self)->recording_.finish();
  });
}

bool AppDelegate::isIgnored(const std::string& bundleID) const {
  const auto& ignored = store_.settings.get().ignoredApps;
  return std::ranges::find(ignored, bundleID) != ignored.end();
}

/// A press of one of our own hot keys never reaches the window in which a shortcut is being recorded, so it
/// is given to the recorder here.
void AppDelegate::perform(const ShortcutOwner& owner) {
  if (const auto keys = store_.settings.get().shortcut(owner); keys && panel_.record(*keys)) return;
  if (const auto* action = std::get_if<SnapAction>(&owner)) controller_.perform(*action);
  if (const auto* area = std::get_if<Uuid>(&owner)) menu_->runArea(*area);
}

void AppDelegate::tellOfTakenKeys() {
  takenKeys_.tellOnce(store_.settings.get(), store_.unavailable.get(), [weak = std::weak_ptr(self_)] {
    if (const auto self = weak.lock()) (*self)->showSettings("shortcuts");
  });
}

void AppDelegate::showSettings(const std::optional<std::string>& section) {
  applier_.retryRefused();
  panel_.show(section);
  // An open dialog must be answered first.
  platform_.dialogs.activate();
}

CommandReply AppDelegate::runCommand(std::span<const std::string> arguments) {
  // A panel or a menu from which it is called may have the focus.
  const CommandWindows::Command running(*windows_);
  return commands_.run(arguments);
}

void AppDelegate::takeCommands(std::vector<CommandServer*> servers) {
  for (CommandServer* server : servers) {
    server->serve([this](std::span<const std::string> arguments) { return runCommand(arguments); });
  }
  events_.listen([servers = std::move(servers)](const std::string& line) {
    for (CommandServer* server : servers) server->tell(line);
  });
}

std::unique_ptr<SettingsView> AppDelegate::makeSettingsView() {
  const auto tiling = platform_.userDefaults.flag("com.apple.WindowManager", "EnableTilingByEdgeDrag");
  return std::make_unique<SettingsView>(
      store_, settingsActions(),
      SettingsView::Surroundings{.nativeTilingOn = tiling.value_or(false),
                                 .displayAspect = aspectOfPrimaryDisplay(*platform_.windows),
                                 .wording = platform_.words.wording()});
}

SettingsView::Actions AppDelegate::settingsActions() {
  const auto setOpenAtLogin = [this](bool wanted, std::optional<std::string>& note) {
    const bool isAsWanted = login_.set(wanted);
    if (wanted && !isAsWanted) note = LoginItem::whyNotEnabled(login_.status(), platform_.words.wording());
    return wanted ? isAsWanted : login_.isOn();
  };
  return {.openDesktopAndDock = [this] { platform_.files.openURL(desktopAndDock); },
          .shadowCount = [this] { return recording_.count(); },
          .showShadowData =
              [this] {
                if (const auto file = recording_.file()) platform_.files.reveal(*file);
              },
          .deleteShadowData = [this] { recording_.erase(); },
          .opensAtLogin = [this] { return login_.isOn(); },
          .setOpenAtLogin = setOpenAtLogin,
          .shortcutRecording = [this](bool isRecording) { applier_.setRecordingShortcut(isRecording); },
          .retryRefused = [this] { applier_.retryRefused(); }};
}

}  // namespace tilwin
