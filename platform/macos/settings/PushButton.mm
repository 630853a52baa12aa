#include "platform/macos/settings/PushButton.h"

#include <algorithm>
#include <utility>

#include "platform/macos/settings/Painting.h"
#include "platform/macos/support/Text.h"

using tilwin::FormButton;
using tilwin::FormSymbol;
using tilwin::macos::Report;

namespace {

constexpr CGFloat symbolSize = 14;
constexpr CGFloat narrowestButton = 36;

/// AppKit colours it as it does the title.
NSImage* imageOf(FormSymbol symbol) {
  NSImage* const image = [NSImage imageWithSize:NSMakeSize(symbolSize, symbolSize)
                                        flipped:NO
                                 drawingHandler:^BOOL(NSRect area) {
                                   tilwin::macos::drawSymbol(symbol, area, [NSColor blackColor], NO);
                                   return YES;
                                 }];
  [image setTemplate:YES];
  return image;
}

}  // namespace

@implementation TWPushButton

- (instancetype)initWithReport:(Report)report {
  self = [super initWithReport:std::move(report)];
  if (self == nil) return nil;
  symbol_ = FormSymbol::none;
  [self setBezelStyle:NSBezelStyleRounded];
  return self;
}

- (void)displayModel:(const FormButton&)button {
  id_ = button.id;
  NSString* const title = tilwin::macos::text(button.title);
  NSString* const label = button.label.empty() ? title : tilwin::macos::text(button.label);
  if (![[self title] isEqualToString:title]) [self setTitle:title];
  if ([self isEnabled] != button.isEnabled) [self setEnabled:button.isEnabled];
  [self displaySymbol:button.symbol];
  [self setAccessibilityLabel:label];
  // A symbol alone says what it does when the pointer rests on it.
  NSString* const toolTip = button.title.empty() ? label : nil;
  if (toolTip != [self toolTip] && ![toolTip isEqualToString:[self toolTip]]) [self setToolTip:toolTip];
}

- (void)displaySymbol:(FormSymbol)symbol {
  const bool isNone = symbol == FormSymbol::none;
  if (symbol != std::exchange(symbol_, symbol)) [self setImage:isNone ? nil : imageOf(symbol)];
  // After the image, which changes it.
  const NSCellImagePosition beside = [[self title] length] > 0 ? NSImageLeft : NSImageOnly;
  [self setImagePosition:isNone ? NSNoImage : beside];
}

- (CGFloat)naturalWidth {
  return std::max(tilwin::macos::naturalSize(self).width, narrowestButton);
}

- (CGFloat)heightForWidth:(CGFloat)width {
  (void)width;
  return tilwin::macos::naturalSize(self).height;
}

@end
