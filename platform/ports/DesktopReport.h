#pragma once

#include "core/doctor/DesktopFacts.h"

namespace tilwin {

/// What a desktop tells of itself for the report of a bug, beyond what the other ports say. It changes
/// nothing, and may wait for the desktop's answers. Main thread only.
class DesktopReport {
public:
  DesktopReport() = default;
  DesktopReport(const DesktopReport&) = delete;
  DesktopReport& operator=(const DesktopReport&) = delete;
  virtual ~DesktopReport() = default;

  /// By default nothing, for desktops that manage windows themselves.
  [[nodiscard]] virtual DesktopFacts facts() { return {}; }
};

}  // namespace tilwin
