#pragma once

#include <string>

#include "platform/ports/FormModel.h"

namespace tilwin::contract {

/// A form as the program shows it, with every kind of control: the sections "spacing", "behavior",
/// "shortcuts", "areas" and "statistics". The texts are as long as they get.
[[nodiscard]] FormModel sampleForm(const std::string& chosenSection = "spacing");

/// Finds parts of a form by their ids; the part must exist.
[[nodiscard]] FormSection& sectionIn(FormModel& form, const std::string& id);
[[nodiscard]] FormGroup& groupIn(FormModel& form, const std::string& id);
[[nodiscard]] FormRow& rowIn(FormModel& form, const std::string& id);
[[nodiscard]] FormPicture& pictureIn(FormModel& form, const std::string& id);

/// The control of that type with this id, in any section, or null.
template <typename Control>
[[nodiscard]] Control* findControl(FormModel& form, const std::string& id) {
  for (auto& section : form.sections) {
    for (auto& group : section.groups) {
      for (auto& row : group.rows) {
        for (auto& control : row.controls) {
          auto* found = std::get_if<Control>(&control);
          if (found != nullptr && found->id == id) return found;
        }
      }
    }
  }
  return nullptr;
}

/// The search field or any other field with this id, or null.
[[nodiscard]] FormTextField* findField(FormModel& form, const std::string& id);

}  // namespace tilwin::contract
