#pragma once

#import <AppKit/AppKit.h>

#include <vector>

#include "platform/macos/support/Held.h"
#include "platform/ports/Screens.h"

namespace tilwin::macos {

/// A screen that is not there.
struct ScreenElsewhere {
  ScreenRect frame{};
  ScreenRect visibleFrame{};
  Held<NSDictionary*> description{};
};

/// AppKit has these screens instead of those of the X server, and posts that they have changed.
void connectScreens(std::vector<ScreenElsewhere> screens);
/// AppKit has those of the X server again.
void disconnectScreens();

}  // namespace tilwin::macos
