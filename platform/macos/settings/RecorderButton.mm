#include "platform/macos/settings/RecorderButton.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/macos/settings/Painting.h"
#include "platform/macos/support/Text.h"

using tilwin::FormRecorder;
using tilwin::macos::Report;

namespace {

constexpr CGFloat capPadding = 12;
constexpr CGFloat narrowestCap = 112;
constexpr CGFloat capHeight = 26;
constexpr CGFloat capRadius = 6;

}  // namespace

@implementation TWRecorderButton

- (instancetype)initWithReport:(Report)report {
  self = [super initWithReport:std::move(report)];
  if (self == nil) return nil;
  [self setBordered:NO];
  [self setFocusRingType:NSFocusRingTypeNone];
  [self setFont:[NSFont systemFontOfSize:[NSFont systemFontSize]]];
  return self;
}

- (void)displayModel:(const FormRecorder&)recorder {
  const bool starts = recorder.isRecording && !recorder_.isRecording;
  if (recorder != recorder_) {
    const bool isOtherTitle = recorder.title != recorder_.title;
    recorder_ = recorder;
    id_ = recorder.id;
    NSString* const title = tilwin::macos::text(recorder.title);
    [self setTitle:title];
    [self setAccessibilityLabel:tilwin::macos::text(recorder.label)];
    [self setAccessibilityValue:title];
    if (isOtherTitle) NSAccessibilityPostNotification(self, NSAccessibilityValueChangedNotification);
    [self setNeedsDisplay:YES];
  }
  if (starts) [[self window] makeFirstResponder:self];
}

/// It draws its focus ring itself.
- (BOOL)becomeFirstResponder {
  [self setNeedsDisplay:YES];
  return [super becomeFirstResponder];
}

- (BOOL)resignFirstResponder {
  [self setNeedsDisplay:YES];
  return [super resignFirstResponder];
}

- (NSAttributedString*)styledTitle {
  NSColor* colour = recorder_.isEmpty ? [NSColor secondaryLabelColor] : [NSColor labelColor];
  if (recorder_.isRecording) colour = [NSColor controlAccentColor];
  NSMutableParagraphStyle* const style = [[[NSMutableParagraphStyle alloc] init] autorelease];
  [style setAlignment:NSTextAlignmentCenter];
  [style setLineBreakMode:NSLineBreakByTruncatingTail];
  NSDictionary* const look = @{
    NSFontAttributeName : [self font],
    NSForegroundColorAttributeName : colour,
    NSParagraphStyleAttributeName : style
  };
  return [[[NSAttributedString alloc] initWithString:[self title] attributes:look] autorelease];
}

- (CGFloat)naturalWidth {
  return std::max(std::ceil([[self styledTitle] size].width) + 2 * capPadding, narrowestCap);
}

- (CGFloat)heightForWidth:(CGFloat)width {
  (void)width;
  return capHeight;
}

- (void)drawRect:(NSRect)dirty {
  (void)dirty;
  const NSRect body = NSInsetRect([self bounds], 1, 1);
  tilwin::macos::fillRounded(body, capRadius, [NSColor textBackgroundColor]);
  NSColor* const accent = [NSColor controlAccentColor];
  if (recorder_.isRecording)
    tilwin::macos::fillRounded(body, capRadius, [accent colorWithAlphaComponent:0.12]);
  if ([[self cell] isHighlighted]) {
    tilwin::macos::fillRounded(body, capRadius, [[NSColor labelColor] colorWithAlphaComponent:0.1]);
  }
  if (recorder_.isRecording) {
    tilwin::macos::strokeRounded(body, capRadius, accent, 2);
  } else {
    tilwin::macos::strokeRounded(body, capRadius, [NSColor tertiaryLabelColor], 1);
    if (tilwin::macos::showsFocus(self)) tilwin::macos::drawFocusRing([self bounds], capRadius + 1);
  }
  NSAttributedString* const title = [self styledTitle];
  const CGFloat height = std::ceil([title size].height);
  [title drawInRect:NSMakeRect(NSMinX(body) + capPadding - 2, std::round(NSMidY(body) - height / 2),
                               NSWidth(body) - 2 * capPadding + 4, height)];
}

- (BOOL)isFlipped {
  return YES;
}

@end
