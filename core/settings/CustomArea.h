#pragma once

#include <optional>
#include <string>

#include "core/geometry/NormalizedRect.h"
#include "core/settings/HotKeySpec.h"
#include "core/support/Uuid.h"

namespace tilwin {

/// A place for windows that the user has named.
struct CustomArea {
  Uuid id{};  ///< stays the same when the area is renamed
  std::string name{};
  NormalizedRect rect{};  ///< fractions of a display's visible frame
  std::optional<HotKeySpec> shortcut{};

  bool operator==(const CustomArea&) const = default;

  /// A new area in the middle of the screen, over its whole height.
  [[nodiscard]] static CustomArea starter(std::string named);
  /// The nearest fractions that lie wholly on the display and take at least 5% of it in each direction,
  /// whatever the numbers are.
  [[nodiscard]] static NormalizedRect clamped(const NormalizedRect& rect);
};

}  // namespace tilwin
