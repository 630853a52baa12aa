#include "platform/macos/settings/Label.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "platform/macos/support/Text.h"

using tilwin::macos::LabelTone;

namespace {

struct ToneLook {
  CGFloat points;  ///< beyond the system's size
  bool isBold;
  NSColor* (*colour)();
};

/// In the order of `LabelTone`.
constexpr std::array<ToneLook, 5> toneLooks{{
    {0, false, [] { return [NSColor labelColor]; }},
    {9, true, [] { return [NSColor labelColor]; }},
    {0, true, [] { return [NSColor labelColor]; }},
    {0, false, [] { return [NSColor secondaryLabelColor]; }},
    {0, false, [] { return [NSColor systemRedColor]; }},
}};

const ToneLook& lookOf(LabelTone tone) { return toneLooks.at(static_cast<std::size_t>(tone)); }

NSFont* fontOf(LabelTone tone) {
  const CGFloat size = [NSFont systemFontSize] + lookOf(tone).points;
  return lookOf(tone).isBold ? [NSFont boldSystemFontOfSize:size] : [NSFont systemFontOfSize:size];
}

constexpr CGFloat endless = 100'000;

}  // namespace

@implementation TWLabel

- (instancetype)initWithTone:(LabelTone)tone {
  self = [super initWithReport:{}];
  if (self == nil) return nil;
  tone_ = tone;
  font_ = tilwin::macos::retained(fontOf(tone));
  alignment_ = NSTextAlignmentLeft;
  measuredWidth_ = -1;
  [self setHidden:YES];
  [self setAccessibilityElement:YES];
  [self setAccessibilityRole:NSAccessibilityStaticTextRole];
  return self;
}

- (void)setAlignment:(NSTextAlignment)alignment {
  alignment_ = alignment;
}

- (const std::string&)content {
  return content_;
}

- (LabelTone)tone {
  return tone_;
}

- (void)displayText:(const std::string&)text {
  [self setHidden:text.empty()];
  if (text == content_) return;
  content_ = text;
  measuredWidth_ = -1;
  [self setAccessibilityValue:tilwin::macos::text(text)];
  if (tone_ == LabelTone::problem) {
    NSAccessibilityPostNotification(self, NSAccessibilityValueChangedNotification);
  }
  [self setNeedsDisplay:YES];
}

- (NSAttributedString*)styled {
  NSMutableParagraphStyle* const style = [[[NSMutableParagraphStyle alloc] init] autorelease];
  [style setParagraphStyle:[NSParagraphStyle defaultParagraphStyle]];
  [style setLineBreakMode:NSLineBreakByWordWrapping];
  [style setAlignment:alignment_];
  NSDictionary* const look = @{
    NSFontAttributeName : font_.get(),
    NSForegroundColorAttributeName : lookOf(tone_).colour(),
    NSParagraphStyleAttributeName : style
  };
  return [[[NSAttributedString alloc] initWithString:tilwin::macos::text(content_)
                                          attributes:look] autorelease];
}

- (NSSize)sizeWithin:(CGFloat)width {
  const NSRect bounds = [[self styled] boundingRectWithSize:NSMakeSize(width, endless)
                                                    options:NSStringDrawingUsesLineFragmentOrigin];
  return NSMakeSize(std::ceil(bounds.size.width), std::ceil(bounds.size.height));
}

- (CGFloat)naturalWidth {
  return [self sizeWithin:endless].width + 1;
}

- (CGFloat)heightForWidth:(CGFloat)width {
  if (width != measuredWidth_) {
    measuredWidth_ = width;
    measuredHeight_ = [self sizeWithin:std::max(width, CGFloat{1})].height;
  }
  return measuredHeight_;
}

- (void)drawRect:(NSRect)dirty {
  (void)dirty;
  [[self styled] drawWithRect:[self bounds] options:NSStringDrawingUsesLineFragmentOrigin];
}

@end

namespace tilwin::macos {

Held<TWLabel*> addLabel(NSView* parent, LabelTone tone) {
  auto label = owned([[TWLabel alloc] initWithTone:tone]);
  [parent addSubview:label.get()];
  return label;
}

}  // namespace tilwin::macos
