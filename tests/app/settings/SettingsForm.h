#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tests/app/settings/OpenSettings.h"

namespace tilwin {

/// A user who reads the form.
struct SettingsForm : OpenSettings {
  [[nodiscard]] std::string caption(std::string_view id) const { return control<FormSlider>(id)->caption; }
  [[nodiscard]] std::vector<std::string> rowTitles(std::string_view sectionId) const {
    std::vector<std::string> titles;
    for (const FormGroup& group : section(sectionId).groups) {
      for (const FormRow& each : group.rows) titles.push_back(each.title);
    }
    return titles;
  }
};

}  // namespace tilwin
