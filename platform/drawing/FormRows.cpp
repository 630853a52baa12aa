#include "platform/drawing/FormRows.h"

#include <algorithm>
#include <variant>

namespace tilwin::drawing {

const std::string& idOf(const FormControl& control) {
  return std::visit([](const auto& any) -> const std::string& { return any.id; }, control);
}

bool doesStretch(const FormControl& control) {
  return std::holds_alternative<FormToggle>(control) || std::holds_alternative<FormSlider>(control) ||
         std::holds_alternative<FormTextField>(control);
}

bool isButtonsOnly(const FormRow& row) {
  const bool hasText = !row.title.empty() || !row.note.empty() || !row.problem.empty();
  return !hasText && !row.picture && std::ranges::all_of(row.controls, [](const FormControl& control) {
    return std::holds_alternative<FormButton>(control);
  });
}

std::string remarkOf(const FormRow& row) {
  return row.problem + (row.problem.empty() || row.note.empty() ? "" : " ") + row.note;
}

}  // namespace tilwin::drawing
