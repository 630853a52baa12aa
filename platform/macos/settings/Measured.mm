#include "platform/macos/settings/Measured.h"

#include <algorithm>
#include <cmath>

namespace tilwin::macos {

NSSize naturalSize(NSControl* control) {
  const NSSize size = [[control cell] cellSize];
  const NSSize aligned = [control alignmentRectForFrame:NSMakeRect(0, 0, size.width, size.height)].size;
  return NSMakeSize(std::ceil(aligned.width), std::ceil(aligned.height));
}

void place(NSView* view, NSRect area) {
  const CGFloat x = std::round(area.origin.x);
  const CGFloat y = std::round(area.origin.y);
  const NSRect whole =
      NSMakeRect(x, y, std::round(NSMaxX(area)) - x, std::max(std::round(area.size.height), 0.0));
  const NSRect frame = [view frameForAlignmentRect:whole];
  if (NSEqualRects([view frame], frame)) return;
  [[view superview] setNeedsDisplayInRect:[view frame]];
  [view setFrame:frame];
  [view setNeedsDisplay:YES];
}

void redraw(NSView* view) {
  [view setNeedsDisplay:YES];
  for (NSView* child in [view subviews]) redraw(child);
}

void discard(NSView* view) {
  [[view retain] autorelease];
  [view removeFromSuperview];
}

}  // namespace tilwin::macos
