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

/// Where on a display a window goes: cells of a grid, which honour margin and gap, or plain fractions of the
/// visible frame.
using SlotTarget = std::variant<GridRegion, NormalizedRect>;

/// One window to place. It is looked for by `bundleID`, without one by `appName`; empty text counts as none.
struct LayoutSlot {
  std::optional<std::string> bundleID{};
  std::optional<std::string> appName{};
  std::optional<std::string> titleContains{};  ///< narrows the choice among the application's windows
  std::int64_t displayIndex = 0;               ///< in `DisplayOrder`; one outside it means the nearest end
  SlotTarget target{};

  bool operator==(const LayoutSlot&) const = default;
};

/// A saved arrangement of application windows.
struct Layout {
  Uuid id{};
  std::string name{};
  std::vector<LayoutSlot> slots{};              ///< in the order in which windows are chosen and placed
  std::optional<DisplaySignature> signature{};  ///< the displays it was captured on, if it belongs to any
  bool isAutomatic = false;                     ///< kept by the program itself for its displays
  Date updatedAt{};

  bool operator==(const Layout&) const = default;
};

}  // namespace tilwin
