#pragma once

#import <AppKit/AppKit.h>

#include "platform/ports/FormModel.h"

namespace tilwin::macos {

/// Draw into the view that is being drawn; main thread only. Lengths are in points, in the view's
/// coordinates.

/// A symbol of a form in one colour, as lines and filled boxes. `flipped` is that of the view it is drawn in.
void drawSymbol(FormSymbol symbol, NSRect area, NSColor* colour, BOOL flipped);

void fillRounded(NSRect area, CGFloat radius, NSColor* colour);
/// Inside the area.
void strokeRounded(NSRect area, CGFloat radius, NSColor* colour, CGFloat width);

/// Whether the view's focus is to be seen.
[[nodiscard]] bool showsFocus(NSView* view);
/// For views that draw themselves; the system draws that of its own controls.
void drawFocusRing(NSRect area, CGFloat radius);

}  // namespace tilwin::macos
