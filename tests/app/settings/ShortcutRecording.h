#pragma once

#include <string>

#include "tests/app/settings/OpenSettings.h"

namespace tilwin {

/// A user who records shortcuts.
struct ShortcutRecording : OpenSettings {
  static constexpr HotKeySpec controlOptionLeft{123, HotKeySpec::control | HotKeySpec::option};
  static constexpr HotKeySpec controlOptionA{0, HotKeySpec::control | HotKeySpec::option};
  static constexpr HotKeySpec commandQ{12, HotKeySpec::cmd};
  static constexpr HotKeySpec escape{53, 0};
  static constexpr HotKeySpec backspace{51, 0};
  static constexpr HotKeySpec forwardDelete{117, HotKeySpec::shift};

  [[nodiscard]] std::string problem(const std::string& row) const { return this->row(row)->problem; }

  const std::string leftHalf = shortcutOf(SnapAction::leftHalf);
  const std::string rightHalf = shortcutOf(SnapAction::rightHalf);
};

}  // namespace tilwin
