#pragma once

#include <array>
#include <span>
#include <string>
#include <vector>

#include "tests/desktop/harness/Manager.h"
#include "tests/desktop/harness/XServer.h"
#include "tests/desktop/soak/Model.h"

namespace tilwin::desktop::soak {

/// The managers that come and go.
inline constexpr std::array soakManagers{Manager::openbox, Manager::xfwm4, Manager::metacity, Manager::kwin};

/// The sets of displays that come and go, the primary one first as in the server's list. Begins with the set
/// to start with.
[[nodiscard]] std::span<const std::vector<PluggedDisplay>> arrangements();
/// The same for the model.
[[nodiscard]] std::vector<Display> displaysFor(const std::vector<PluggedDisplay>& plugged);

/// A sort of window. None has a client-side shadow: openbox, which does not know them, moves a window whose
/// shadow is above its display.
struct WindowSort {
  const char* name = "";
  bool isUndecorated = false;
};
inline constexpr std::array windowSorts{
    WindowSort{"plain", false},
    WindowSort{"undecorated", true},
};

[[nodiscard]] std::string text(const Rect& frame);
[[nodiscard]] std::string text(const Standing& standing);
[[nodiscard]] std::string text(const Expected& expected);

}  // namespace tilwin::desktop::soak
