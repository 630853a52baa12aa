#pragma once

#import <AppKit/AppKit.h>

#include <functional>
#include <string>
#include <vector>

#include "platform/macos/settings/MacSettingsWindow.h"
#include "tests/contract/SettingsWindowDriver.h"
#include "tests/macos/desktop/MacDesktop.h"
#include "tests/macos/settings/Hands.h"

namespace tilwin::macos {

/// Uses the window by AppKit's events, and reads it from its views.
class MacSettingsDriver final : public contract::SettingsWindowDriver {
public:
  MacSettingsDriver() = default;
  MacSettingsDriver(const MacSettingsDriver&) = delete;
  MacSettingsDriver& operator=(const MacSettingsDriver&) = delete;
  ~MacSettingsDriver() override;

  SettingsWindow& window() override { return window_; }
  bool settle(const std::function<bool()>& condition) override;

  void press(const std::string& button) override;
  void flip(const std::string& toggle) override;
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
  void setCapsLock(bool on) override { capsLock_ = on; }

  void leaveProgram() override;
  void returnToProgram() override;
  [[nodiscard]] bool isInFront() override;

  [[nodiscard]] contract::ShownForm shown() override;
  [[nodiscard]] bool isOn(const std::string& toggle) override;
  [[nodiscard]] double sliderPosition(const std::string& slider) override;
  [[nodiscard]] std::string caption(const std::string& slider) override;
  [[nodiscard]] std::string text(const std::string& field) override;
  [[nodiscard]] contract::FieldSelection selection(const std::string& field) override;
  [[nodiscard]] std::string buttonTitle(const std::string& buttonOrRecorder) override;
  [[nodiscard]] std::vector<FormPicture::Tile> tiles(const std::string& picture) override;
  [[nodiscard]] std::string focused() override;

  /// The open window, or nil.
  [[nodiscard]] static NSWindow* frame();
  /// The view of the control or picture with this id; throws if it is not shown.
  [[nodiscard]] static NSView* control(const std::string& id);
  /// Turns the mouse wheel until the whole view is in sight.
  static void reveal(NSView* view);
  /// A point of the screen, in pixels from the top left.
  [[nodiscard]] static desktop::PixelPoint pixelAt(NSView* view, NSPoint at);
  [[nodiscard]] static desktop::WindowId nativeWindow();

private:
  /// Lets the window manager give the focus to the other program; later it would take it from the next
  /// window.
  void letFocusGo();
  /// Asks the window manager for the focus, in intervals.
  void turnToWindow();
  static void clickMiddle(NSView* view);

  MacSettingsWindow window_;
  /// Gets the focus when the window closes.
  desktop::TestWindow other_{macDesktop().server().display(), {.area = {1500, 800, 200, 150}}};
  desktop::WindowId turnedTo_ = 0;
  desktop::Clock::time_point turnedAt_{};
  bool capsLock_ = false;
  NSPoint hand_{};  ///< where the mouse was moved last, in the window
};

/// Whether it shows a control of the form. GNUstep does not know which protocols a class has from elsewhere.
[[nodiscard]] bool isControl(NSView* view);

/// Every view in the open window that is not hidden, each before those in it.
[[nodiscard]] std::vector<NSView*> visibleViews();
[[nodiscard]] std::vector<NSView*> visibleViewsIn(NSView* view);

}  // namespace tilwin::macos
