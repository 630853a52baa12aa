#include "platform/macos/settings/SliderView.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "platform/macos/support/Keys.h"
#include "platform/macos/support/Text.h"

using tilwin::FormSlider;
using tilwin::macos::Report;

namespace {

struct SliderKey {
  unichar character;
  double steps;  ///< small ones, or hundredths of a continuous slider
  double pages;
};

constexpr std::array<SliderKey, 8> sliderKeys{{
    {NSRightArrowFunctionKey, 1, 0},
    {NSUpArrowFunctionKey, 1, 0},
    {NSLeftArrowFunctionKey, -1, 0},
    {NSDownArrowFunctionKey, -1, 0},
    {NSPageUpFunctionKey, 0, 1},
    {NSPageDownFunctionKey, 0, -1},
    {NSHomeFunctionKey, 0, -100},
    {NSEndFunctionKey, 0, 100},
}};

double distanceOf(const SliderKey& key, const FormSlider& slider) {
  const double range = slider.maximum - slider.minimum;
  const double page = range / (slider.step > 0 ? 8 : 10);
  const double wholePage =
      slider.step > 0 ? std::max(std::round(page / slider.step), 1.0) * slider.step : page;
  return key.steps * (slider.step > 0 ? slider.step : range / 100) + key.pages * wholePage;
}

double withinRange(double value, const FormSlider& slider) {
  if (std::isnan(value) || slider.maximum <= slider.minimum) return slider.minimum;
  return std::clamp(value, slider.minimum, slider.maximum);
}

double onStep(double value, const FormSlider& slider) {
  if (slider.step <= 0) return withinRange(value, slider);
  return withinRange(slider.minimum + std::round((value - slider.minimum) / slider.step) * slider.step,
                     slider);
}

}  // namespace

@implementation TWSliderView

- (instancetype)initWithReport:(Report)report {
  self = [super initWithFrame:NSZeroRect];
  if (self == nil) return nil;
  report_ = std::move(report);
  [self setContinuous:YES];
  [self setTarget:self];
  [self setAction:@selector(move:)];
  return self;
}

- (void)displayModel:(const FormSlider&)slider {
  slider_ = slider;
  if ([self minValue] != slider.minimum) [self setMinValue:slider.minimum];
  if ([self maxValue] != slider.maximum) [self setMaxValue:slider.maximum];
  reported_ = withinRange(slider.value, slider);
  if ([self doubleValue] != reported_) [self setDoubleValue:reported_];
  [self setAccessibilityLabel:tilwin::macos::text(slider.label)];
  [self setAccessibilityValueDescription:tilwin::macos::text(slider.caption)];
}

- (void)move:(id)sender {
  (void)sender;
  const double value = onStep([self doubleValue], slider_);
  [self setDoubleValue:value];
  if (value == std::exchange(reported_, value)) return;
  report_(tilwin::form::SliderMoved{slider_.id, value});
}

- (void)keyDown:(NSEvent*)event {
  const auto* const key =
      std::ranges::find(sliderKeys, tilwin::macos::typedCharacter(event), &SliderKey::character);
  if (key == sliderKeys.end()) return [super keyDown:event];
  [self setDoubleValue:withinRange([self doubleValue] + distanceOf(*key, slider_), slider_)];
  [self move:self];
}

/// From the end of the slider to the middle of the knob when that is at its end, in points.
- (CGFloat)inset {
  return [[self cell] knobRectFlipped:[self isFlipped]].size.width / 2;
}

- (CGFloat)knobX {
  return NSMidX([[self cell] knobRectFlipped:[self isFlipped]]);
}

- (void)follow:(NSEvent*)event {
  const CGFloat x = [self convertPoint:[event locationInWindow] fromView:nil].x - grip_;
  const CGFloat room = std::max(
      [self bounds].size.width - 2 * [self inset], CGFloat { 1 });
  const double share = std::clamp((x - [self inset]) / room, 0.0, 1.0);
  [self setDoubleValue:slider_.minimum + share * (slider_.maximum - slider_.minimum)];
  [self move:self];
}

- (void)mouseDown:(NSEvent*)event {
  const CGFloat x = [self convertPoint:[event locationInWindow] fromView:nil].x;
  grip_ = std::abs(x - [self knobX]) <= [self inset] ? x - [self knobX] : 0;
  [[self window] makeFirstResponder:self];
  [self follow:event];
}

- (void)mouseDragged:(NSEvent*)event {
  [self follow:event];
}

- (void)mouseUp:(NSEvent*)event {
  (void)event;
}

- (void)scrollWheel:(NSEvent*)event {
  [[self nextResponder] scrollWheel:event];
}

- (BOOL)acceptsFirstResponder {
  return YES;
}

- (BOOL)canBecomeKeyView {
  return ![self isHiddenOrHasHiddenAncestor];
}

- (const std::string&)formId {
  return slider_.id;
}

- (NSView*)keyView {
  return self;
}

- (void)setRemark:(NSString*)remark {
  [self setAccessibilityHelp:remark];
}

- (CGFloat)heightForWidth:(CGFloat)width {
  (void)width;
  return std::clamp(tilwin::macos::naturalSize(self).height, 18.0, 24.0);
}

@end
