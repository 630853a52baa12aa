#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>

#include "app/settings/Published.h"
#include "app/settings/SettingsStore.h"
#include "app/settings/form/AreaDrag.h"
#include "app/settings/form/FormState.h"
#include "platform/ports/FormEvent.h"
#include "platform/ports/FormModel.h"

namespace tilwin {

/// The content of the settings window: makes the form from the settings and turns what the user does in it
/// into changes of the settings, which are stored at once. Main thread only.
class SettingsView {
public:
  /// What the view asks of the rest of the program.
  struct Actions {
    std::function<void()> openDesktopAndDock;
    std::function<std::size_t()> shadowCount;
    std::function<void()> showShadowData;
    std::function<void()> deleteShadowData;
    std::function<bool()> opensAtLogin;
    /// Returns whether the program now opens at login; sets the note if it was asked for and refused.
    std::function<bool(bool wanted, std::optional<std::string>& note)> setOpenAtLogin;
    /// Called with true when recording of a shortcut starts and with false when it stops.
    std::function<void(bool isRecording)> shortcutRecording;
    /// Called when a shortcut that the desktop refused may be tried again.
    std::function<void()> retryRefused;
  };

  /// What is fixed as long as the window is open.
  struct Surroundings {
    bool nativeTilingOn = false;
    double displayAspect = 1.6;
    Wording wording{};
  };

  /// The store must outlive the view.
  SettingsView(SettingsStore& store, Actions actions, const Surroundings& surroundings);
  SettingsView(const SettingsView&) = delete;
  SettingsView& operator=(const SettingsView&) = delete;
  ~SettingsView();

  /// Called when the form has changed because of an event.
  std::function<void()> onChange;

  [[nodiscard]] FormModel form() const;
  void handle(const FormEvent& event);
  /// Asks again for what may have changed without the store knowing.
  void lookAgain();
  [[nodiscard]] bool isRecording() const { return !state_.recording.empty(); }

private:
  void on(const form::ButtonPressed& event);
  void on(const form::ToggleChanged& event);
  void on(const form::SliderMoved& event);
  void on(const form::TextChanged& event);
  void on(const form::KeyPressed& event);
  void on(const form::PictureGrabbed& event);
  void on(const form::PictureDragged& event);
  void on(const form::PictureReleased&) { areaDrag_.reset(); }
  void on(const form::SectionChosen& event);
  void on(const form::WindowClosed&) { stopRecording(); }
  void on(const form::FocusLost&) { stopRecording(); }

  void pressed(const ShortcutOwner& owner, std::string_view kind, const std::string& id);
  void startRecording(const std::string& id);
  void stopRecording();
  void assign(const HotKeySpec& keys, const std::string& recorder);
  void clear(const std::string& recorder);
  void settle(const std::string& recorder);
  void changeOpenAtLogin(bool wanted);
  void change(const std::function<void(TilwinSettings&)>& edit);
  void changeArea(const ShortcutOwner& owner, const std::function<void(CustomArea&)>& edit);

  SettingsStore& store_;
  Actions actions_;
  FormState state_;
  std::string chosenSection_;
  std::optional<AreaDrag> areaDrag_;
};

}  // namespace tilwin
