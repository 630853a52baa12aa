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

bool isPressing(NSEvent* event) {
  NSString* const typed = [event charactersIgnoringModifiers];
  return [typed isEqualToString:@" "] || [typed isEqualToString:@"\r"] || [typed isEqualToString:@"\003"];
}

}  // namespace

@implementation TWKeyButton

- (BOOL)acceptsFirstResponder {
  return [self isEnabled];
}

- (BOOL)canBecomeKeyView {
  return [self isEnabled] && ![self isHiddenOrHasHiddenAncestor];
}

- (void)keyDown:(NSEvent*)event {
  if (!isPressing(event)) return [super keyDown:event];
  if (![event isARepeat]) [self performClick:self];
}

@end

@implementation TWPushButton

- (instancetype)initWithReport:(Report)report {
  self = [super initWithFrame:NSZeroRect];
  if (self == nil) return nil;
  report_ = std::move(report);
  symbol_ = FormSymbol::none;
  [self setButtonType:NSButtonTypeMomentaryPushIn];
  [self setBezelStyle:NSBezelStyleRounded];
  [self setTarget:self];
  [self setAction:@selector(press:)];
  return self;
}

- (void)displayModel:(const FormButton&)button {
  id_ = button.id;
  symbol_ = button.symbol;
  NSString* const title = tilwin::macos::text(button.title);
  if (![[self title] isEqualToString:title]) [self setTitle:title];
  if ([self isEnabled] != button.isEnabled) [self setEnabled:button.isEnabled];
  [self setAccessibilityLabel:button.label.empty() ? title : tilwin::macos::text(button.label)];
}

- (void)press:(id)sender {
  (void)sender;
  report_(tilwin::form::ButtonPressed{id_});
}

- (const std::string&)formId {
  return id_;
}

- (NSView*)keyView {
  return self;
}

- (void)setRemark:(NSString*)remark {
  [self setAccessibilityHelp:remark];
}

- (CGFloat)naturalWidth {
  return std::max(tilwin::macos::naturalSize(self).width, narrowestButton);
}

- (CGFloat)heightForWidth:(CGFloat)width {
  (void)width;
  return tilwin::macos::naturalSize(self).height;
}

- (void)drawRect:(NSRect)dirty {
  [super drawRect:dirty];
  if (symbol_ == FormSymbol::none) return;
  const NSRect body = [self alignmentRectForFrame:[self bounds]];
  NSColor* const colour = [self isEnabled] ? [NSColor controlTextColor] : [NSColor disabledControlTextColor];
  tilwin::macos::drawSymbol(
      symbol_,
      NSMakeRect(NSMidX(body) - symbolSize / 2, NSMidY(body) - symbolSize / 2, symbolSize, symbolSize),
      colour, [self isFlipped]);
}

@end
