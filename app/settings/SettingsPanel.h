#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "app/settings/Published.h"
#include "app/settings/SettingsStore.h"
#include "app/settings/SettingsView.h"
#include "platform/ports/MainQueue.h"
#include "platform/ports/SettingsWindow.h"

namespace tilwin {

/// Opens the settings window and connects it to its content, which exists only while the window is open. Main
/// thread only.
class SettingsPanel {
public:
  /// Makes the content each time the window opens.
  using ViewMaker = std::function<std::unique_ptr<SettingsView>()>;

  /// The port, the queue and the store must outlive this.
  SettingsPanel(SettingsWindow& window, MainQueue& mainQueue, SettingsStore& store, ViewMaker makeView);
  SettingsPanel(const SettingsPanel&) = delete;
  SettingsPanel& operator=(const SettingsPanel&) = delete;
  ~SettingsPanel();

  /// Opens the window, or brings the open one to the front; in the section of this id if there is one.
  void show(const std::optional<std::string>& section = std::nullopt);
  /// Gives the keys to the shortcut that is being recorded. Returns false if none is.
  bool record(const HotKeySpec& keys);

private:
  void handle(const FormEvent& event);
  void update();
  void updateSoon();

  SettingsWindow& window_;
  MainQueue& mainQueue_;
  SettingsStore& store_;
  ViewMaker makeView_;
  std::unique_ptr<SettingsView> view_;
  Subscription settingsChanges_;
  Subscription unavailableChanges_;
  /// Posted tasks hold this weakly, so that they do nothing after this object is destroyed.
  std::shared_ptr<SettingsPanel*> self_;
};

}  // namespace tilwin
