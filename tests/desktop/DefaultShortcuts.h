#pragma once

#include <array>

#include "core/geometry/Rect.h"

namespace tilwin::desktop {

/// A default shortcut and its effect on a window at `startFrame`, on a display of 1920×1080 points without
/// panels. Written by hand, so that the program is not compared with itself.
struct DefaultShortcut {
  const char* shown = "";   ///< as menus show it
  const char* action = "";  ///< raw value
  const char* chord = "";   ///< key names for `Input`
  Rect frame;               ///< the expected frame
  bool relative = false;    ///< whether it depends on the frame before
};

inline constexpr Rect wholeDisplay{0, 0, 1920, 1080};
inline constexpr Rect startFrame{300, 200, 800, 600};

/// All but the two that move to another display.
inline constexpr std::array<DefaultShortcut, 27> oneDisplayShortcuts{{
    {"⌃⌥←", "leftHalf", "Control+Alt+Left", {0, 0, 960, 1080}},
    {"⌃⌥→", "rightHalf", "Control+Alt+Right", {960, 0, 960, 1080}},
    {"⌃⌥↑", "topHalf", "Control+Alt+Up", {0, 0, 1920, 540}},
    {"⌃⌥↓", "bottomHalf", "Control+Alt+Down", {0, 540, 1920, 540}},
    {"⌃⌥U", "topLeft", "Control+Alt+u", {0, 0, 960, 540}},
    {"⌃⌥I", "topRight", "Control+Alt+i", {960, 0, 960, 540}},
    {"⌃⌥J", "bottomLeft", "Control+Alt+j", {0, 540, 960, 540}},
    {"⌃⌥K", "bottomRight", "Control+Alt+k", {960, 540, 960, 540}},
    {"⌃⌥D", "leftThird", "Control+Alt+d", {0, 0, 640, 1080}},
    {"⌃⌥F", "centerThird", "Control+Alt+f", {640, 0, 640, 1080}},
    {"⌃⌥G", "rightThird", "Control+Alt+g", {1280, 0, 640, 1080}},
    {"⌃⌥E", "leftTwoThirds", "Control+Alt+e", {0, 0, 1280, 1080}},
    {"⌃⌥T", "rightTwoThirds", "Control+Alt+t", {640, 0, 1280, 1080}},
    {"⌃⌥↩", "maximize", "Control+Alt+Return", {0, 0, 1920, 1080}},
    {"⌃⌥=", "almostMaximize", "Control+Alt+equal", {96, 54, 1728, 972}},
    {"⌃⌥C", "center", "Control+Alt+c", {560, 240, 800, 600}, true},
    {"⌃⌥1", "firstFourth", "Control+Alt+1", {0, 0, 480, 1080}},
    {"⌃⌥2", "secondFourth", "Control+Alt+2", {480, 0, 480, 1080}},
    {"⌃⌥3", "thirdFourth", "Control+Alt+3", {960, 0, 480, 1080}},
    {"⌃⌥4", "lastFourth", "Control+Alt+4", {1440, 0, 480, 1080}},
    {"⌃⌥⇧←", "leftThreeFourths", "Control+Alt+Shift+Left", {0, 0, 1440, 1080}},
    {"⌃⌥⇧→", "rightThreeFourths", "Control+Alt+Shift+Right", {480, 0, 1440, 1080}},
    {"⌃⌥⇧↑", "maximizeHeight", "Control+Alt+Shift+Up", {300, 0, 800, 1080}, true},
    {"⌃⌥⇧↓", "maximizeWidth", "Control+Alt+Shift+Down", {0, 200, 1920, 600}, true},
    {"⌃⌥⇧=", "larger", "Control+Alt+Shift+equal", {268, 168, 864, 664}, true},
    {"⌃⌥⇧-", "smaller", "Control+Alt+Shift+minus", {332, 232, 736, 536}, true},
    {"⌃⌥⌫", "restore", "Control+Alt+BackSpace", startFrame, true},
}};

inline constexpr const char* leftHalfKeys = "Control+Alt+Left";
inline constexpr const char* restoreKeys = "Control+Alt+BackSpace";
inline constexpr const char* nextDisplayKeys = "Control+Alt+Super+Right";
inline constexpr const char* previousDisplayKeys = "Control+Alt+Super+Left";

}  // namespace tilwin::desktop
