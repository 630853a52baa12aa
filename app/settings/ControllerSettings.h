#pragma once

#include "core/settings/TilwinSettings.h"
#include "core/snap/SnapController.h"

namespace tilwin {

/// Hands the controller those of the settings that it follows.
inline void handTo(SnapController& controller, const TilwinSettings& settings) {
  controller.outer = settings.outer;
  controller.gap = settings.gap;
  controller.cycleWidths = settings.cycleWidths;
  controller.ignoredBundleIDs = {settings.ignoredApps.begin(), settings.ignoredApps.end()};
}

}  // namespace tilwin
