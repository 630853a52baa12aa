#pragma once

#include <string>
#include <string_view>

#include "app/settings/form/FormState.h"
#include "platform/ports/FormModel.h"

namespace tilwin {

/// The control that records the shortcut of an action or an area, and what is wrong with it.
struct ShortcutControl {
  ShortcutOwner owner;
  std::string_view name;        ///< of the action or the area
  std::string_view emptyTitle;  ///< shown if there is no shortcut

  [[nodiscard]] FormRecorder recorder(const FormState& state) const;
  /// Why the last recorded keys were rejected, or who else has the shortcut; empty if it is fine. `advice`
  /// follows if that is another program.
  [[nodiscard]] std::string problem(const FormState& state, std::string_view advice = {}) const;
};

}  // namespace tilwin
