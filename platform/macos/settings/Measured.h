#pragma once

#import <AppKit/AppKit.h>

#include <string>

/// A view that is laid out by the view around it. Sizes are those of its alignment rectangle, in points.
@protocol TWMeasured <NSObject>
- (CGFloat)heightForWidth:(CGFloat)width;
@optional
/// How wide it would like to be. Of what does not stretch.
- (CGFloat)naturalWidth;
@end

/// What a user works with: shows a `FormControl`.
@protocol TWFormControl <TWMeasured>
- (const std::string&)formId;
/// The view that takes the keyboard focus.
- (NSView*)keyView;
/// What screen readers say about it beside its name.
- (void)setRemark:(NSString*)remark;
@end

namespace tilwin::macos {

using MeasuredView = NSView<TWMeasured>;
using ControlView = NSView<TWFormControl>;

/// Lengths in points, on a grid of 8.
namespace metrics {
inline constexpr CGFloat grid = 8;
inline constexpr CGFloat cardPadding = 2 * grid;
inline constexpr CGFloat cardRadius = 8;
inline constexpr CGFloat pageMargin = 3 * grid;
inline constexpr CGFloat widestContent = 760;
}  // namespace metrics

/// The size of a control that knows its own, without the room around its alignment rectangle.
[[nodiscard]] NSSize naturalSize(NSControl* control);

/// Gives the view this alignment rectangle, in whole points.
void place(NSView* view, NSRect area);

/// Draws the view and all that is in it anew. On macOS a view that is drawn anew leaves the views in it
/// alone.
void redraw(NSView* view);

/// Takes the view out of its window. It lives on until the event being handled is over; it may be its own.
void discard(NSView* view);

}  // namespace tilwin::macos
