#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "core/geometry/NormalizedRect.h"
#include "core/layouts/DisplaySignature.h"
#include "core/snap/actions/GridRegion.h"
#include "core/support/Date.h"
#include "core/support/Uuid.h"

namespace tilwin {

/// Where on a display a window goes: cells of a grid, placed with margin and gap, or fractions of the visible
/// frame, placed without.
using SlotTarget = std::variant<GridRegion, NormalizedRect>;

/// One window to place. The window is searched by `bundleID`, or if that is missing or empty by `appName`.
struct LayoutSlot {
  std::optional<std::string> bundleID{};
  std::optional<std::string> appName{};
  std::optional<std::string> titleContains{};  ///< if not empty, the window's title must contain this
  std::int64_t displayIndex = 0;               ///< in `DisplayOrder`; clamped to the existing displays
  SlotTarget target{};

  bool operator==(const LayoutSlot&) const = default;
};

/// A saved arrangement of application windows.
struct Layout {
  Uuid id{};
  std::string name{};
  std::vector<LayoutSlot> slots{};              ///< windows are chosen and placed in this order
  std::optional<DisplaySignature> signature{};  ///< the displays it belongs to, if any
  bool isAutomatic = false;                     ///< saved by the program itself, not by the user
  Date updatedAt{};

  bool operator==(const Layout&) const = default;
};

}  // namespace tilwin
