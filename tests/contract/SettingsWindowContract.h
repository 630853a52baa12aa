#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tests/contract/SampleForm.h"
#include "tests/contract/SettingsWindowDriver.h"

namespace tilwin::contract {

/// What every settings window must do. Each test has its own window and a program that makes its form.
class SettingsWindowContract : public testing::TestWithParam<SettingsWindowDriverMaker> {
protected:
  void SetUp() override;
  void TearDown() override;

  /// Shows the form with this section.
  void open(const std::string& section);
  /// The program changes its form as the event asks, and draws it.
  void obey(const FormEvent& event);
  /// Draws the form as it is now.
  void redraw() { window.update(form); }

  /// Waits until there are as many events; they must be exactly these.
  testing::AssertionResult received(const std::vector<FormEvent>& expected);
  /// Waits until the window shows the form.
  testing::AssertionResult showsForm();
  testing::AssertionResult hasFocus(const std::string& control);
  template <typename Value, typename See>
  testing::AssertionResult comesTo(const Value& wanted, See see) {
    Value last{};
    driver->settle([&] { return (last = see()) == wanted; });
    if (last == wanted) return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << "wanted " << testing::PrintToString(wanted) << ", but saw " << testing::PrintToString(last);
  }

  void setRecording(const std::string& id, bool recording);
  /// Opens the shortcuts while the recorder of the first row records.
  void openRecording();

  std::unique_ptr<SettingsWindowDriver> driver = GetParam()();
  SettingsWindow& window = driver->window();
  FormModel form = sampleForm();
  std::vector<FormEvent> events;
  /// What the program does about an event.
  std::function<void(const FormEvent&)> reaction = [](const FormEvent&) {};

  static constexpr const char* recorder = "leftHalf.keys";
};

}  // namespace tilwin::contract
