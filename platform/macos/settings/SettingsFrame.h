#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "platform/macos/settings/FormWindow.h"
#include "platform/macos/settings/KeyCapture.h"
#include "platform/macos/settings/Report.h"
#include "platform/macos/settings/SectionPage.h"
#include "platform/macos/settings/Sidebar.h"
#include "platform/macos/support/Held.h"
#include "platform/ports/FormModel.h"

namespace tilwin::macos {

/// One window with what is in it: the sidebar, and the page of the chosen section. Main thread only. What it
/// reports may close or replace it, so whoever calls it holds it meanwhile.
class SettingsFrame {
public:
  /// `onClosing` is called when the user closes the window, before that is reported.
  SettingsFrame(Report report, std::function<void()> onClosing);
  SettingsFrame(const SettingsFrame&) = delete;
  SettingsFrame& operator=(const SettingsFrame&) = delete;
  ~SettingsFrame() { dismiss(); }

  void display(const FormModel& form);
  /// Brings the window to the front, with the keyboard.
  void present();
  /// Closes the window. It reports nothing any more.
  void dismiss();

private:
  void displaySection(const FormSection& section);
  void arrange();
  void orderFocus();

  std::shared_ptr<Report> target_;
  Report report_;  ///< to the target, as long as there is one
  std::function<void()> onClosing_;
  Held<TWFormWindow*> window_;
  KeyCapture capture_;
  Held<TWSidebar*> sidebar_;
  Held<TWSectionPage*> page_;
  std::vector<NSView*> focusOrder_;
  bool isClosing_ = false;  ///< by the user
};

}  // namespace tilwin::macos
