#pragma once

#import <AppKit/AppKit.h>

#include <string>

#include "platform/macos/settings/FormView.h"
#include "platform/macos/settings/Measured.h"
#include "platform/macos/support/Held.h"

namespace tilwin::macos {

enum class LabelTone { title, pageTitle, heading, secondary, problem };

}  // namespace tilwin::macos

/// Plain text that is broken into lines and never cut off. Measured and drawn by the same routine.
@interface TWLabel : TWFormView <TWMeasured> {
  tilwin::macos::LabelTone tone_;
  std::string content_;
  tilwin::macos::Held<NSFont*> font_;
  NSTextAlignment alignment_;
  CGFloat measuredWidth_;
  CGFloat measuredHeight_;
}
- (instancetype)initWithTone:(tilwin::macos::LabelTone)tone;
- (void)setAlignment:(NSTextAlignment)alignment;
/// Shows the text; hides the label if it is empty.
- (void)displayText:(const std::string&)text;
- (const std::string&)content;
- (tilwin::macos::LabelTone)tone;
@end

namespace tilwin::macos {

/// A new label in `parent`.
[[nodiscard]] Held<TWLabel*> addLabel(NSView* parent, LabelTone tone);

}  // namespace tilwin::macos
