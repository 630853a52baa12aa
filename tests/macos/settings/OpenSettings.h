#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/contract/SampleForm.h"
#include "tests/macos/settings/MacSettingsDriver.h"

namespace tilwin::macos {

/// The settings window with a sample form, and what the form was told since it came up.
class OpenSettings : public testing::Test {
protected:
  void open(const std::string& section) {
    driver.window().onEvent([this](const FormEvent& event) { events.push_back(event); });
    driver.window().show(contract::sampleForm(section));
    ASSERT_TRUE(driver.settle([this] { return driver.isInFront(); }));
    events.clear();
  }
  void TearDown() override { driver.window().onEvent({}); }

  MacSettingsDriver driver;
  std::vector<FormEvent> events;
};

}  // namespace tilwin::macos
