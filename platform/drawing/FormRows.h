#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "platform/ports/FormModel.h"

namespace tilwin::drawing {

/// Of any control.
[[nodiscard]] const std::string& idOf(const FormControl& control);
/// Whether it takes the room that the others in its row leave.
[[nodiscard]] bool doesStretch(const FormControl& control);
/// Whether the row consists of buttons alone, which then stand outside a card.
[[nodiscard]] bool isButtonsOnly(const FormRow& row);
/// The texts below a row, which screen readers would not connect with its control.
[[nodiscard]] std::string remarkOf(const FormRow& row);

/// Takes out of `shown` what shows this control, if anything does: it has the same `id`, and `kind` is the
/// control's index in `FormControl`.
template <typename Shown>
[[nodiscard]] std::optional<Shown> taken(std::vector<Shown>& shown, const FormControl& control) {
  const auto found = std::ranges::find_if(shown, [&](const Shown& candidate) {
    return candidate.id == idOf(control) && candidate.kind == control.index();
  });
  if (found == shown.end()) return std::nullopt;
  Shown match = *found;
  shown.erase(found);
  return match;
}

}  // namespace tilwin::drawing
