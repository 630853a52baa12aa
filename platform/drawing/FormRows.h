#pragma once

#include <string>

#include "platform/ports/FormModel.h"

namespace tilwin::drawing {

/// Of any control.
[[nodiscard]] const std::string& idOf(const FormControl& control);
/// Whether the row consists of buttons alone, which then stand outside a card.
[[nodiscard]] bool isButtonsOnly(const FormRow& row);
/// The texts below a row, which screen readers would not connect with its control.
[[nodiscard]] std::string remarkOf(const FormRow& row);

}  // namespace tilwin::drawing
