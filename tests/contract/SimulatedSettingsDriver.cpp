#include "tests/contract/SimulatedSettingsDriver.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

#include "tests/contract/SampleForm.h"
#include "tests/contract/SettingsWindowContract.h"

namespace tilwin::contract {
namespace {

double positionOf(const FormSlider& slider) {
  return std::clamp((slider.value - slider.minimum) / (slider.maximum - slider.minimum), 0.0, 1.0);
}

double valueAt(const FormSlider& slider, double share) {
  const double value = slider.minimum + std::clamp(share, 0.0, 1.0) * (slider.maximum - slider.minimum);
  return slider.step > 0 ? std::round(value / slider.step) * slider.step : value;
}

/// The id of the recorder that records, or nothing.
std::string recordingIn(const FormModel& form) {
  for (const auto& section : form.sections) {
    for (const auto& group : section.groups) {
      for (const auto& row : group.rows) {
        for (const auto& control : row.controls) {
          const auto* recorder = std::get_if<FormRecorder>(&control);
          if (recorder != nullptr && recorder->isRecording) return recorder->id;
        }
      }
    }
  }
  return {};
}

}  // namespace

FormModel SimulatedSettingsDriver::drawn() const {
  if (!window_.form()) throw std::logic_error("the window is closed");
  return *window_.form();
}

template <typename Control>
Control SimulatedSettingsDriver::found(const std::string& id) const {
  auto form = drawn();
  const auto* control = findControl<Control>(form, id);
  if (control == nullptr) throw std::logic_error("the window does not show " + id);
  return *control;
}

FormTextField SimulatedSettingsDriver::foundField(const std::string& id) const {
  auto form = drawn();
  const auto* field = findField(form, id);
  if (field == nullptr) throw std::logic_error("the window does not show " + id);
  return *field;
}

void SimulatedSettingsDriver::press(const std::string& button) {
  auto form = drawn();
  focused_ = button;
  if (const auto* found = findControl<FormButton>(form, button); found != nullptr && !found->isEnabled)
    return;
  window_.send(form::ButtonPressed{button});
}

void SimulatedSettingsDriver::flip(const std::string& toggle) {
  focused_ = toggle;
  window_.send(form::ToggleChanged{toggle, !isOn(toggle)});
}

void SimulatedSettingsDriver::moveSlider(const std::string& slider, double to) {
  focused_ = slider;
  window_.send(form::SliderMoved{slider, valueAt(found<FormSlider>(slider), to)});
}

void SimulatedSettingsDriver::grab(const std::string& picture, Point at) {
  window_.send(form::PictureGrabbed{picture, at, {0.03, 0.05}});
}

void SimulatedSettingsDriver::dragTo(const std::string& picture, Point to) {
  window_.send(form::PictureDragged{picture, to});
}

void SimulatedSettingsDriver::drop(const std::string& picture) {
  window_.send(form::PictureReleased{picture});
}

void SimulatedSettingsDriver::focus(const std::string& control) {
  focused_ = control;
  auto form = drawn();
  const auto* field = findField(form, control);
  const int length = field == nullptr ? 0 : static_cast<int>(field->text.size());
  selection_ = {.cursor = length, .start = 0, .length = length};
}

void SimulatedSettingsDriver::type(const std::string& text) {
  for (const char c : text) {
    auto field = foundField(focused_);
    field.text.erase(static_cast<std::size_t>(selection_.start), static_cast<std::size_t>(selection_.length));
    const int at = selection_.length > 0 ? selection_.start : selection_.cursor;
    field.text.insert(static_cast<std::size_t>(at), 1, c);
    selection_ = {.cursor = at + 1};
    window_.send(form::TextChanged{field.id, field.text});
  }
}

void SimulatedSettingsDriver::pressKeys(const HotKeySpec& keys) {
  auto form = drawn();
  if (form.isRecording()) return window_.send(form::KeyPressed{keys});
  if (keys.keyCode == keys::escape) return window_.send(form::WindowClosed{});
  if (findField(form, focused_) != nullptr) return edit(keys);
  use(keys);
}

void SimulatedSettingsDriver::edit(const HotKeySpec& keys) {
  if (keys.keyCode == keys::home) selection_ = {};
  if (keys.keyCode != keys::right) return;
  const bool selects = (keys.modifiers & HotKeySpec::shift) != 0;
  ++selection_.cursor;
  selection_.length = selects ? selection_.length + 1 : 0;
}

void SimulatedSettingsDriver::moveBy(const FormSlider& slider, double share) {
  window_.send(form::SliderMoved{slider.id, valueAt(slider, positionOf(slider) + share)});
}

void SimulatedSettingsDriver::use(const HotKeySpec& keys) {
  auto form = drawn();
  if (const auto* slider = findControl<FormSlider>(form, focused_)) {
    const double range = slider->maximum - slider->minimum;
    const double step = slider->step > 0 ? slider->step / range : 0.01;
    if (keys.keyCode == keys::right) moveBy(*slider, step);
    if (keys.keyCode == keys::left) moveBy(*slider, -step);
    if (keys.keyCode == keys::pageUp) moveBy(*slider, 0.1);
    return;
  }
  if (keys.keyCode != keys::space && keys.keyCode != keys::returnKey) return;
  if (findControl<FormToggle>(form, focused_) != nullptr) return flip(focused_);
  press(focused_);
}

ShownForm SimulatedSettingsDriver::shown() {
  const auto& form = window_.form();
  if (!form) return {};
  return expectedOf(*form);
}

double SimulatedSettingsDriver::sliderPosition(const std::string& slider) {
  return positionOf(found<FormSlider>(slider));
}

std::string SimulatedSettingsDriver::caption(const std::string& slider) {
  return found<FormSlider>(slider).caption;
}

FieldSelection SimulatedSettingsDriver::selection(const std::string&) { return selection_; }

std::string SimulatedSettingsDriver::buttonTitle(const std::string& buttonOrRecorder) {
  auto form = drawn();
  const auto* button = findControl<FormButton>(form, buttonOrRecorder);
  return button != nullptr ? button->title : found<FormRecorder>(buttonOrRecorder).title;
}

std::vector<FormPicture::Tile> SimulatedSettingsDriver::tiles(const std::string& picture) {
  auto form = drawn();
  return pictureIn(form, picture).tiles;
}

std::string SimulatedSettingsDriver::focused() {
  const auto recording = window_.form() ? recordingIn(*window_.form()) : std::string();
  if (!recording.empty()) focused_ = recording;
  return focused_;
}

namespace {

std::unique_ptr<SettingsWindowDriver> makeSimulatedDriver() {
  return std::make_unique<SimulatedSettingsDriver>();
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(Simulated, SettingsWindowContract, testing::Values(&makeSimulatedDriver));

}  // namespace tilwin::contract
