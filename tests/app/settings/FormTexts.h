#pragma once

#include <algorithm>
#include <string>
#include <type_traits>
#include <variant>
#include <vector>

#include "platform/ports/FormModel.h"

/// Reads a form as a whole.

namespace tilwin {

using Texts = std::vector<std::string>;

/// What a control is called, and everything else that it says.
struct ControlTexts {
  Texts operator()(const FormToggle& toggle) const { return {toggle.title}; }
  Texts operator()(const FormSlider& slider) const { return {slider.label, slider.caption}; }
  Texts operator()(const FormTextField& field) const { return {field.label, field.placeholder}; }
  Texts operator()(const FormButton& button) const {
    return {button.label.empty() ? button.title : button.label, button.title};
  }
  Texts operator()(const FormRecorder& recorder) const { return {recorder.label, recorder.title}; }
};

/// Calls these with every row, and with every picture, of a form.
template <typename OnRow, typename OnPicture>
void visitForm(const FormModel& form, const OnRow& onRow, const OnPicture& onPicture) {
  for (const FormSection& section : form.sections) {
    for (const FormGroup& group : section.groups) {
      if (group.picture) onPicture(*group.picture);
      for (const FormRow& row : group.rows) {
        if (row.picture) onPicture(*row.picture);
        onRow(row);
      }
    }
  }
}

/// Every text of the form, whether it is drawn or only read aloud.
inline Texts textsOf(const FormModel& form) {
  Texts all{form.title};
  const auto add = [&](const Texts& texts) { all.insert(all.end(), texts.begin(), texts.end()); };
  visitForm(
      form,
      [&](const FormRow& row) {
        add({row.title, row.note, row.problem});
        for (const FormControl& control : row.controls) add(std::visit(ControlTexts(), control));
      },
      [&](const FormPicture& picture) { add({picture.label}); });
  for (const FormSection& section : form.sections) {
    add({section.title, section.help, section.emptyText});
    if (section.search) add(ControlTexts()(*section.search));
    for (const FormGroup& group : section.groups) add({group.heading});
  }
  return all;
}

}  // namespace tilwin
