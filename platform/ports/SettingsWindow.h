#pragma once

#include <functional>

#include "platform/ports/FormEvent.h"
#include "platform/ports/FormModel.h"

namespace tilwin {

/// The settings window: draws a form and reports what the user does in it. It is created when it is first
/// shown and destroyed when it is closed.
class SettingsWindow {
public:
  using EventHandler = std::function<void(const FormEvent&)>;

  SettingsWindow() = default;
  SettingsWindow(const SettingsWindow&) = delete;
  SettingsWindow& operator=(const SettingsWindow&) = delete;
  virtual ~SettingsWindow() = default;

  /// Sets the only handler. It may call any function of this window.
  virtual void onEvent(EventHandler handler) = 0;
  /// Opens the window with this form, or brings the open one to the front and draws the form in it.
  virtual void show(const FormModel& form) = 0;
  /// Draws what differs from the form drawn before; the control in the user's hand keeps focus, selection and
  /// cursor. No event is reported for these changes. Does nothing if the window is closed.
  virtual void update(const FormModel& form) = 0;
  /// Closes the window, without an event.
  virtual void close() = 0;
  [[nodiscard]] virtual bool isOpen() const = 0;
};

}  // namespace tilwin
