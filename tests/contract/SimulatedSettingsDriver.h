#pragma once

#include <string>
#include <vector>

#include "platform/simulated/SimulatedInterface.h"
#include "tests/contract/SettingsWindowDriver.h"

namespace tilwin::contract {

/// The user of the window in memory. What a toolkit's controls do by themselves (the cursor, the order of the
/// focus, the keys of a slider) is done here.
class SimulatedSettingsDriver final : public SettingsWindowDriver {
public:
  SettingsWindow& window() override { return window_; }
  bool settle(const std::function<bool()>& condition) override { return condition(); }

  void press(const std::string& button) override;
  void flip(const std::string& toggle) override;
  void moveSlider(const std::string& slider, double to) override;
  void choose(const std::string& section) override { window_.send(form::SectionChosen{section}); }
  void grab(const std::string& picture, Point at) override;
  void dragTo(const std::string& picture, Point to) override;
  void drop(const std::string& picture) override;
  void closeByHand() override { window_.send(form::WindowClosed{}); }

  void focus(const std::string& control) override;
  void type(const std::string& text) override;
  void pressKeys(const HotKeySpec& keys) override;
  void holdUntilItRepeats(const HotKeySpec& keys) override { pressKeys(keys); }
  void pressModifiersAlone() override {}
  void setCapsLock(bool) override {}

  void leaveProgram() override { window_.send(form::FocusLost{}); }
  void returnToProgram() override {}
  [[nodiscard]] bool isInFront() override { return window_.isOpen(); }

  [[nodiscard]] ShownForm shown() override;
  [[nodiscard]] bool isOn(const std::string& toggle) override { return found<FormToggle>(toggle).isOn; }
  [[nodiscard]] double sliderPosition(const std::string& slider) override;
  [[nodiscard]] std::string caption(const std::string& slider) override;
  [[nodiscard]] std::string text(const std::string& field) override { return foundField(field).text; }
  [[nodiscard]] FieldSelection selection(const std::string& field) override;
  [[nodiscard]] std::string buttonTitle(const std::string& buttonOrRecorder) override;
  [[nodiscard]] std::vector<FormPicture::Tile> tiles(const std::string& picture) override;
  [[nodiscard]] std::string focused() override;

private:
  /// The form as it is drawn; throws if the window is closed.
  [[nodiscard]] FormModel drawn() const;
  template <typename Control>
  [[nodiscard]] Control found(const std::string& id) const;
  [[nodiscard]] FormTextField foundField(const std::string& id) const;
  void moveBy(const FormSlider& slider, double share);
  void edit(const HotKeySpec& keys);
  void use(const HotKeySpec& keys);

  SimulatedSettingsWindow window_;
  std::string focused_;
  FieldSelection selection_;  ///< in the focused field
};

}  // namespace tilwin::contract
