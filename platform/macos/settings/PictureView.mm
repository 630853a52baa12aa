#include "platform/macos/settings/PictureView.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "platform/macos/settings/Painting.h"
#include "platform/macos/support/Text.h"

using tilwin::FormPicture;
using tilwin::macos::PictureScale;
using tilwin::macos::Report;

namespace {

/// How near to an edge counts as touching it.
constexpr CGFloat touchReach = 8;

struct PictureLook {
  CGFloat width;
  CGFloat bezel;
  CGFloat radius;
  CGFloat tileRadius;
  CGFloat shade;  ///< of the bezel
};

/// In the order of `PictureScale`.
constexpr std::array<PictureLook, 2> pictureLooks{{{44, 1.5, 4, 1.5, 0.08}, {232, 6, 9, 3, 0.14}}};

NSRect areaOf(const FormPicture::Tile& tile, NSRect screen) {
  return NSMakeRect(screen.origin.x + tile.rect.x * screen.size.width,
                    screen.origin.y + tile.rect.y * screen.size.height, tile.rect.width * screen.size.width,
                    tile.rect.height * screen.size.height);
}

void drawTile(const FormPicture::Tile& tile, NSRect screen, const PictureLook& look, bool isLarge) {
  NSColor* const accent = [NSColor controlAccentColor];
  const NSRect area = areaOf(tile, screen);
  if (!tile.isHighlighted) {
    return tilwin::macos::fillRounded(area, look.tileRadius,
                                      [[NSColor labelColor] colorWithAlphaComponent:0.22]);
  }
  tilwin::macos::fillRounded(area, look.tileRadius, [accent colorWithAlphaComponent:isLarge ? 0.82 : 1]);
  if (isLarge) tilwin::macos::strokeRounded(area, look.tileRadius, accent, 1.5);
}

}  // namespace

@implementation TWPictureView

- (instancetype)initWithScale:(PictureScale)scale report:(Report)report {
  self = [super initWithReport:std::move(report)];
  if (self == nil) return nil;
  scale_ = scale;
  [self setAccessibilityElement:YES];
  [self setAccessibilityRole:NSAccessibilityImageRole];
  return self;
}

- (void)displayPicture:(const FormPicture&)picture {
  if (picture == picture_) return;
  picture_ = picture;
  [self setAccessibilityLabel:tilwin::macos::text(picture.label)];
  [self setNeedsDisplay:YES];
  [[self window] invalidateCursorRectsForView:self];
}

- (const FormPicture&)picture {
  return picture_;
}

- (const PictureLook&)look {
  return pictureLooks.at(static_cast<std::size_t>(scale_));
}

- (double)aspectRatio {
  return std::isfinite(picture_.aspectRatio) ? std::clamp(picture_.aspectRatio, 0.4, 4.0) : 1.6;
}

- (CGFloat)naturalWidth {
  const CGFloat widest = [self look].width;
  const double ratio = [self aspectRatio];
  // An upright display is drawn narrower, so that it is not too high.
  return std::round(ratio >= 1 ? widest : std::max(widest * ratio * 0.9, widest * 0.4));
}

- (CGFloat)heightForWidth:(CGFloat)width {
  const CGFloat bezel = [self look].bezel;
  return std::round((width - 2 * bezel) / [self aspectRatio] + 2 * bezel);
}

- (NSRect)screen {
  return NSInsetRect([self bounds], [self look].bezel, [self look].bezel);
}

- (void)drawRect:(NSRect)dirty {
  (void)dirty;
  const PictureLook& look = [self look];
  const NSRect screen = [self screen];
  const CGFloat glassRadius = look.radius - look.bezel / 2;
  tilwin::macos::fillRounded([self bounds], look.radius,
                             [[NSColor labelColor] colorWithAlphaComponent:look.shade]);
  tilwin::macos::fillRounded(screen, glassRadius, [NSColor controlBackgroundColor]);
  tilwin::macos::fillRounded(screen, glassRadius,
                             [[NSColor controlAccentColor] colorWithAlphaComponent:0.12]);
  tilwin::macos::strokeRounded([self bounds], look.radius, [NSColor tertiaryLabelColor], 1);
  [NSGraphicsContext saveGraphicsState];
  [[NSBezierPath bezierPathWithRoundedRect:screen xRadius:glassRadius yRadius:glassRadius] addClip];
  for (const bool isHighlighted : {false, true}) {
    for (const auto& tile : picture_.tiles) {
      if (tile.isHighlighted == isHighlighted) drawTile(tile, screen, look, scale_ == PictureScale::large);
    }
  }
  [NSGraphicsContext restoreGraphicsState];
}

- (tilwin::Point)fractionsAt:(NSEvent*)event {
  const NSPoint at = [self convertPoint:[event locationInWindow] fromView:nil];
  const NSRect screen = [self screen];
  return {(at.x - screen.origin.x) / screen.size.width, (at.y - screen.origin.y) / screen.size.height};
}

- (void)mouseDown:(NSEvent*)event {
  if (picture_.id.empty()) return [super mouseDown:event];
  isHeld_ = YES;
  const NSSize screen = [self screen].size;
  report_(tilwin::form::PictureGrabbed{
      picture_.id, [self fractionsAt : event], { touchReach / screen.width, touchReach / screen.height }});
}

- (void)mouseDragged:(NSEvent*)event {
  if (!isHeld_) return [super mouseDragged:event];
  report_(tilwin::form::PictureDragged{picture_.id, [self fractionsAt:event]});
}

- (void)mouseUp:(NSEvent*)event {
  if (!isHeld_) return [super mouseUp:event];
  isHeld_ = NO;
  report_(tilwin::form::PictureReleased{picture_.id});
}

- (void)resetCursorRects {
  if (picture_.id.empty()) return;
  for (const auto& tile : picture_.tiles) {
    if (!tile.isHighlighted) continue;
    const NSRect seen = NSIntersectionRect(areaOf(tile, [self screen]), [self visibleRect]);
    if (!NSIsEmptyRect(seen)) [self addCursorRect:seen cursor:[NSCursor openHandCursor]];
  }
}

@end
