#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/geometry/Rect.h"
#include "core/settings/HotKeySpec.h"
#include "platform/simulated/SimulatedAccessibleDesktop.h"
#include "tests/macos/c/accessibility/AccessiblePrograms.h"
#include "tests/macos/c/keyboard/CarbonKeyboard.h"
#include "tests/macos/c/preferences/StoredPreferences.h"

namespace tilwin::macos {

/// A Mac whose user has two programs open, Safari in front, and trusts Tilwin. The screen is that of the X
/// server.
class Mac {
public:
  Mac();
  Mac(const Mac&) = delete;
  Mac& operator=(const Mac&) = delete;
  ~Mac();

  SimulatedAccessibleDesktop desktop{};
  c::AccessiblePrograms programs{desktop.tree};
  c::CarbonKeyboard keyboard{};
  c::StoredPreferences preferences{};

  SimulatedAccessibleDesktop::Node safari = 0;
  SimulatedAccessibleDesktop::Node notes = 0;

  /// Presses a combination that may be a hot key.
  void press(const HotKeySpec& spec);
  /// Where Safari's window is.
  [[nodiscard]] std::optional<Rect> safariFrame() const { return desktop.standing(safari); }
  [[nodiscard]] std::optional<Rect> notesFrame() const { return desktop.standing(notes); }
  /// The part of the screen that is free for windows, in desktop coordinates.
  [[nodiscard]] static Rect visibleFrame();
  /// The settings as they are stored.
  [[nodiscard]] std::string settings() const;
};

}  // namespace tilwin::macos
