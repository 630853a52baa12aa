#pragma once

#import <AppKit/AppKit.h>

#include <string>

#include "platform/macos/settings/Measured.h"
#include "platform/macos/settings/Report.h"
#include "platform/ports/FormModel.h"

/// A slider. A click moves the knob there. It follows the mouse by itself, not in a loop of AppKit's, so that
/// the window may be laid out anew or closed meanwhile. A continuous one moves by a hundredth of its range
/// with the arrow keys, and by a tenth with the page keys. The mouse wheel does not move it, so that a page
/// can be scrolled over it.
@interface TWSliderView : NSSlider <TWFormControl> {
  tilwin::FormSlider slider_;
  tilwin::macos::Report report_;
  double reported_;  ///< the value that was reported or displayed last
  CGFloat grip_;     ///< from the middle of the knob to the mouse, in points
}
- (instancetype)initWithReport:(tilwin::macos::Report)report;
- (void)displayModel:(const tilwin::FormSlider&)slider;
@end
