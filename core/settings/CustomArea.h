#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "core/geometry/NormalizedRect.h"
#include "core/settings/HotKeySpec.h"
#include "core/support/Uuid.h"

namespace tilwin {

/// A named area of the display, defined by the user, into which windows can be moved.
struct CustomArea {
  static constexpr std::size_t longestName = 300;  ///< bytes of UTF-8

  Uuid id{};  ///< does not change when the area is renamed
  std::string name{};
  NormalizedRect rect{};  ///< fractions of a display's visible frame
  std::optional<HotKeySpec> shortcut{};

  bool operator==(const CustomArea&) const = default;

  /// A new area with a random id and as much of the name as is kept, in the middle of the display and over
  /// its whole height.
  [[nodiscard]] static CustomArea starter(std::string_view named);
  /// The start of the name that is kept: whole characters, no more bytes than `longestName`.
  [[nodiscard]] static std::string keptName(std::string_view name);
  /// Clamps the fractions so that the area lies on the display and covers at least 5% of it in each
  /// direction. NaN becomes the lower bound.
  [[nodiscard]] static NormalizedRect clamped(const NormalizedRect& rect);
};

}  // namespace tilwin
