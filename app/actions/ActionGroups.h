#pragma once

#include <span>
#include <string_view>

#include "core/snap/actions/SnapAction.h"

namespace tilwin {

/// Actions that belong together, as menus and settings show them. Every action is in one group.
struct ActionGroup {
  std::string_view title;
  std::span<const SnapAction> actions;

  /// In the order of the menu.
  [[nodiscard]] static std::span<const ActionGroup> all();
};

}  // namespace tilwin
