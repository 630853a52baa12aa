#pragma once

#include <QRect>
#include <QWidget>
#include <optional>
#include <string>

#include "platform/qt/settings/QtSettingsWindow.h"
#include "tests/contract/SettingsWindowDriver.h"
#include "tests/contract/qt/QtDesktop.h"

namespace tilwin::contract {

/// Turns a scan code of the private desktop's keyboard into an ANSI key code.
[[nodiscard]] std::optional<std::uint32_t> ansiKeyCode(std::uint32_t nativeScanCode);

/// Uses the window as a person does, by XTEST, and reads it from its widgets.
class QtSettingsDriver final : public SettingsWindowDriver {
public:
  QtSettingsDriver() = default;

  SettingsWindow& window() override { return window_; }
  bool settle(const std::function<bool()>& condition) override;

  void press(const std::string& button) override { click(control(button)); }
  void flip(const std::string& toggle) override { click(control(toggle)); }
  void moveSlider(const std::string& slider, double to) override;
  void choose(const std::string& section) override;
  void grab(const std::string& picture, Point at) override;
  void dragTo(const std::string& picture, Point to) override;
  void drop(const std::string& picture) override;
  void closeByHand() override;

  void focus(const std::string& id) override;
  void type(const std::string& text) override;
  void pressKeys(const HotKeySpec& keys) override;
  void holdUntilItRepeats(const HotKeySpec& keys) override;
  void pressModifiersAlone() override;
  void setCapsLock(bool on) override;

  void leaveProgram() override;
  void returnToProgram() override;
  [[nodiscard]] bool isInFront() override;

  [[nodiscard]] ShownForm shown() override;
  [[nodiscard]] bool isOn(const std::string& toggle) override;
  [[nodiscard]] double sliderPosition(const std::string& slider) override;
  [[nodiscard]] std::string caption(const std::string& slider) override;
  [[nodiscard]] std::string text(const std::string& field) override;
  [[nodiscard]] FieldSelection selection(const std::string& field) override;
  [[nodiscard]] std::string buttonTitle(const std::string& buttonOrRecorder) override;
  [[nodiscard]] std::vector<FormPicture::Tile> tiles(const std::string& picture) override;
  [[nodiscard]] std::string focused() override;

  /// The window's widget, or null.
  [[nodiscard]] static QWidget* frame();
  /// The widget with this id; throws if there is none.
  [[nodiscard]] static QWidget& control(const std::string& id);
  /// Turns the mouse wheel until the whole widget is in view.
  static void reveal(QWidget& widget);
  /// A point of a widget on the screen, in pixels.
  [[nodiscard]] static desktop::PixelPoint pixelAt(const QWidget& widget, const QPointF& at);
  static void click(QWidget& widget);
  /// Lets the events arrive that the last input has caused.
  static void letArrive();

private:
  [[nodiscard]] static desktop::PixelPoint pixelOn(const std::string& picture, Point at);

  qt::QtSettingsWindow window_{ansiKeyCode};
  std::optional<desktop::TestWindow> other_;
};

}  // namespace tilwin::contract
