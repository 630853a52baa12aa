#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/geometry/DisplayInfo.h"
#include "core/geometry/WindowInfo.h"
#include "core/layouts/Layout.h"
#include "core/settings/TilwinSettings.h"

namespace tilwin {

/// What listing commands print, a line for each entry, or as one JSON array (RFC 8259). Frames are in points;
/// as text they are like those of X11's tools: 720x875+0+25.
struct CommandLists {
  [[nodiscard]] static std::string windows(const std::vector<WindowInfo>& windows,
                                           const std::optional<WindowInfo>& focused,
                                           const std::vector<DisplayInfo>& displays, bool asJson);
  [[nodiscard]] static std::string displays(const std::vector<DisplayInfo>& displays, bool asJson);
  [[nodiscard]] static std::string actions(const TilwinSettings& settings, bool asJson);
  /// Their frames are fractions of a display's free part.
  [[nodiscard]] static std::string areas(const std::vector<CustomArea>& areas, bool asJson);
  [[nodiscard]] static std::string layouts(const std::vector<Layout>& layouts, bool asJson);
  /// All settings; as JSON one object.
  [[nodiscard]] static std::string settings(const TilwinSettings& settings, bool asJson);
};

}  // namespace tilwin
