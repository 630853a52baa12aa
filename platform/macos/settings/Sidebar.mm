#include "platform/macos/settings/Sidebar.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/macos/settings/Measured.h"
#include "platform/macos/settings/Painting.h"
#include "platform/macos/support/Keys.h"
#include "platform/macos/support/Text.h"

using tilwin::FormModel;
using tilwin::FormSection;
using tilwin::macos::Report;

namespace metrics = tilwin::macos::metrics;

namespace {

constexpr CGFloat itemHeight = 32;
constexpr CGFloat narrowestSidebar = 184;
constexpr CGFloat widestSidebar = 264;
constexpr CGFloat sectionSymbolSize = 18;
constexpr CGFloat besideSymbol = 9;
constexpr CGFloat itemRadius = 6;
constexpr CGFloat titleX = 2 * besideSymbol + sectionSymbolSize;

NSDictionary* titleLook(NSColor* colour, bool isChosen) {
  const CGFloat size = [NSFont systemFontSize];
  NSMutableParagraphStyle* const style = [[[NSMutableParagraphStyle alloc] init] autorelease];
  [style setLineBreakMode:NSLineBreakByTruncatingTail];
  return @{
    NSFontAttributeName : isChosen ? [NSFont boldSystemFontOfSize:size] : [NSFont systemFontOfSize:size],
    NSForegroundColorAttributeName : colour,
    NSParagraphStyleAttributeName : style
  };
}

}  // namespace

@implementation TWSectionButton

- (instancetype)initWithReport:(Report)report {
  self = [super initWithFrame:NSZeroRect];
  if (self == nil) return nil;
  report_ = std::move(report);
  [self setButtonType:NSButtonTypeMomentaryPushIn];
  [self setBordered:NO];
  // The list takes the focus for all.
  [self setRefusesFirstResponder:YES];
  [self setTarget:self];
  [self setAction:@selector(choose:)];
  [self setAccessibilityRole:NSAccessibilityRadioButtonRole];
  return self;
}

- (void)displayModel:(const FormSection&)section isChosen:(BOOL)isChosen {
  id_ = section.id;
  symbol_ = section.symbol;
  isChosen_ = isChosen;
  [self setTitle:tilwin::macos::text(section.title)];
  [self setAccessibilityLabel:[self title]];
  [self setAccessibilityValue:@(isChosen)];
  [self setNeedsDisplay:YES];
}

- (void)choose:(id)sender {
  (void)sender;
  if (!isChosen_) report_(tilwin::form::SectionChosen{id_});
}

- (const std::string&)formId {
  return id_;
}

- (BOOL)isChosen {
  return isChosen_;
}

- (void)drawRect:(NSRect)dirty {
  (void)dirty;
  const NSRect body = [self bounds];
  NSColor* const accent = [NSColor controlAccentColor];
  if (isChosen_) tilwin::macos::fillRounded(body, itemRadius, [accent colorWithAlphaComponent:0.18]);
  if ([[self cell] isHighlighted]) {
    tilwin::macos::fillRounded(body, itemRadius, [[NSColor labelColor] colorWithAlphaComponent:0.08]);
  }
  if (isChosen_ && tilwin::macos::showsFocus([self superview]))
    tilwin::macos::drawFocusRing(body, itemRadius);
  tilwin::macos::drawSymbol(symbol_,
                            NSMakeRect(besideSymbol, std::round(NSMidY(body) - sectionSymbolSize / 2),
                                       sectionSymbolSize, sectionSymbolSize),
                            isChosen_ ? accent : [NSColor secondaryLabelColor], [self isFlipped]);
  NSDictionary* const look = titleLook([NSColor labelColor], isChosen_);
  const CGFloat height = std::ceil([[self title] sizeWithAttributes:look].height);
  [[self title] drawInRect:NSMakeRect(titleX, std::round(NSMidY(body) - height / 2),
                                      NSWidth(body) - titleX - besideSymbol, height)
            withAttributes:look];
}

- (BOOL)isFlipped {
  return YES;
}

@end

@implementation TWSidebar

- (instancetype)initWithReport:(Report)report {
  self = [super initWithReport:std::move(report)];
  if (self == nil) return nil;
  [self setFocusRingType:NSFocusRingTypeNone];
  [self setAccessibilityElement:YES];
  [self setAccessibilityRole:NSAccessibilityRadioGroupRole];
  [self setAccessibilityLabel:@"Sections"];
  return self;
}

- (void)displayModel:(const FormModel&)form {
  for (; buttons_.size() > form.sections.size(); buttons_.pop_back()) {
    tilwin::macos::discard(buttons_.back().get());
  }
  for (std::size_t index = 0; index < form.sections.size(); ++index) {
    const FormSection& section = form.sections[index];
    if (index == buttons_.size()) {
      buttons_.push_back(tilwin::macos::owned([[TWSectionButton alloc] initWithReport:report_]));
      [self addSubview:buttons_.back().get()];
    }
    [buttons_[index].get() displayModel:section isChosen:section.id == form.chosenSection];
  }
}

- (CGFloat)naturalWidth {
  CGFloat widest = 0;
  for (const auto& button : buttons_) {
    NSDictionary* const look = titleLook([NSColor labelColor], true);
    widest = std::max(widest, std::ceil([[button.get() title] sizeWithAttributes:look].width));
  }
  return std::clamp(widest + titleX + besideSymbol + 2 * metrics::grid + 4, narrowestSidebar, widestSidebar);
}

- (void)arrange {
  CGFloat y = metrics::pageMargin - 4;
  for (const auto& button : buttons_) {
    tilwin::macos::place(
        button.get(), NSMakeRect(metrics::grid, y, [self bounds].size.width - 2 * metrics::grid, itemHeight));
    y += itemHeight + 2;
  }
}

- (void)resizeSubviewsWithOldSize:(NSSize)oldSize {
  (void)oldSize;
  [self arrange];
}

- (void)chooseBeside:(std::ptrdiff_t)distance {
  const auto chosen =
      std::ranges::find_if(buttons_, [](const auto& button) { return [button.get() isChosen]; });
  const auto last = static_cast<std::ptrdiff_t>(buttons_.size()) - 1;
  const auto wanted =
      std::clamp(chosen - buttons_.begin() + distance, std::ptrdiff_t{0}, std::max(last, std::ptrdiff_t{0}));
  if (wanted <= last) [buttons_[static_cast<std::size_t>(wanted)].get() choose:self];
}

- (void)keyDown:(NSEvent*)event {
  const unichar character = tilwin::macos::typedCharacter(event);
  if (character == NSDownArrowFunctionKey) return [self chooseBeside:1];
  if (character == NSUpArrowFunctionKey) return [self chooseBeside:-1];
  [super keyDown:event];
}

- (BOOL)acceptsFirstResponder {
  return YES;
}

- (BOOL)canBecomeKeyView {
  return YES;
}

- (BOOL)becomeFirstResponder {
  tilwin::macos::redraw(self);
  return YES;
}

- (BOOL)resignFirstResponder {
  tilwin::macos::redraw(self);
  return YES;
}

- (void)drawRect:(NSRect)dirty {
  (void)dirty;
  const NSRect bounds = [self bounds];
  [[[NSColor labelColor] colorWithAlphaComponent:0.04] set];
  NSRectFillUsingOperation(bounds, NSCompositingOperationSourceOver);
  [[NSColor separatorColor] set];
  NSRectFillUsingOperation(NSMakeRect(NSMaxX(bounds) - 1, 0, 1, NSHeight(bounds)),
                           NSCompositingOperationSourceOver);
}

@end
