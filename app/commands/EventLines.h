#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "app/layouts/LayoutChange.h"
#include "core/geometry/DisplayInfo.h"
#include "core/settings/TilwinSettings.h"
#include "core/snap/actions/SnapAction.h"

namespace tilwin {

/// What `tilwin watch` prints of an event: one JSON object (RFC 8259) on a line, without its end. The member
/// "event" says which kind it is. Windows are named by the number that `tilwin windows --json` gives them.
struct EventLines {
  [[nodiscard]] static std::string snapped(std::int64_t window, SnapAction action);
  [[nodiscard]] static std::string snapped(std::int64_t window, const CustomArea& area);
  [[nodiscard]] static std::string layout(LayoutChange change, const Layout& layout);
  [[nodiscard]] static std::string displays(const std::vector<DisplayInfo>& displays);
  /// A line for each setting that differs.
  [[nodiscard]] static std::vector<std::string> settings(const TilwinSettings& before,
                                                         const TilwinSettings& after);
};

}  // namespace tilwin
