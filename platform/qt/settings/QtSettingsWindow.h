#pragma once

#include <QPointer>
#include <utility>

#include "platform/ports/SettingsWindow.h"
#include "platform/qt/settings/ColourScheme.h"
#include "platform/qt/settings/KeyCapture.h"
#include "platform/qt/settings/SettingsFrame.h"

namespace tilwin::qt {

/// The settings window with Qt's widgets. A QApplication must exist while it is used. Escape and Ctrl+W close
/// it while nothing is recorded; Ctrl+F and "/" go to the search field. When it is opened, the application
/// takes the colours, light or dark, that the desktop asks for.
class QtSettingsWindow final : public SettingsWindow {
public:
  explicit QtSettingsWindow(KeyCodeOf keyCodeOf) : keyCodeOf_(std::move(keyCodeOf)) {}
  QtSettingsWindow(const QtSettingsWindow&) = delete;
  QtSettingsWindow& operator=(const QtSettingsWindow&) = delete;
  ~QtSettingsWindow() override;

  void onEvent(EventHandler handler) override { handler_ = std::move(handler); }
  void show(const FormModel& form) override;
  void update(const FormModel& form) override;
  void close() override;
  [[nodiscard]] bool isOpen() const override { return !frame_.isNull(); }

  /// Gives the application the colours that the desktop asks for, as opening the window does.
  void takeColours();

private:
  void open(const FormModel& form);

  KeyCodeOf keyCodeOf_;
  EventHandler handler_;
  ColourScheme colours_;
  QPointer<SettingsFrame> frame_;
};

}  // namespace tilwin::qt
