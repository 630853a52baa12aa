#pragma once

#include <optional>
#include <string>

#include "core/geometry/NormalizedRect.h"
#include "core/settings/HotKeySpec.h"
#include "core/support/Uuid.h"

namespace tilwin {

/// A named area of the display, defined by the user, into which windows can be moved.
struct CustomArea {
  Uuid id{};  ///< does not change when the area is renamed
  std::string name{};
  NormalizedRect rect{};  ///< fractions of a display's visible frame
  std::optional<HotKeySpec> shortcut{};

  bool operator==(const CustomArea&) const = default;

  /// A new area with a random id, in the middle of the display and over its whole height.
  [[nodiscard]] static CustomArea starter(std::string named);
  /// Clamps the fractions so that the area lies on the display and covers at least 5% of it in each
  /// direction. NaN becomes the lower bound.
  [[nodiscard]] static NormalizedRect clamped(const NormalizedRect& rect);
};

}  // namespace tilwin
