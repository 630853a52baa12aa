#pragma once

#include "platform/ports/Screens.h"

namespace tilwin::macos {

/// The screens of AppKit (NSScreen, macOS 10.0). They are as of the last turn of the event loop. Main thread
/// only.
class MacScreens final : public Screens {
public:
  [[nodiscard]] std::vector<Screen> screens() override;
};

/// The height of the first screen in points, about which `fromScreen` and `toScreen` turn; 0 if there is
/// none.
[[nodiscard]] double firstScreenHeight();

}  // namespace tilwin::macos
