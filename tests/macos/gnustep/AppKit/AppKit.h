#pragma once

/// AppKit as the adapters see it where there is only GNUstep's: that, and the pieces it lacks.

#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wgnu-include-next"
#include_next <AppKit/AppKit.h>
#pragma clang diagnostic pop

#include "tests/macos/c/MacTypes.h"
#include "tests/macos/gnustep/AccentColour.h"
#include "tests/macos/gnustep/Accessibility.h"
#include "tests/macos/gnustep/AccessibilityLabel.h"
#include "tests/macos/gnustep/ActivationPolicy.h"
#include "tests/macos/gnustep/Alert.h"
#include "tests/macos/gnustep/AlignmentRectangles.h"
#include "tests/macos/gnustep/DrawnImage.h"
#include "tests/macos/gnustep/EventMonitors.h"
#include "tests/macos/gnustep/FileViewer.h"
#include "tests/macos/gnustep/Names.h"
#include "tests/macos/gnustep/StatusBar.h"
#include "tests/macos/gnustep/SystemColours.h"
#include "tests/macos/gnustep/TimerTolerance.h"
