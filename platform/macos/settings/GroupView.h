#pragma once

#import <AppKit/AppKit.h>

#include <string>
#include <vector>

#include "platform/macos/settings/CardView.h"
#include "platform/macos/settings/FormView.h"
#include "platform/macos/settings/Label.h"
#include "platform/macos/settings/Report.h"
#include "platform/ports/FormModel.h"

/// A group of rows: its heading, and its card.
@interface TWGroupView : TWFormView {
  std::string id_;
  tilwin::macos::Held<TWLabel*> heading_;
  tilwin::macos::Held<TWCardView*> card_;
}
- (instancetype)initWithReport:(tilwin::macos::Report)report;
- (void)displayModel:(const tilwin::FormGroup&)group;
- (const std::string&)formId;
- (CGFloat)heightForWidth:(CGFloat)width;
/// Puts its parts where they belong in its frame.
- (void)arrange;
/// Appends the views of its controls that take the keyboard focus, in reading order.
- (void)addKeyViewsTo:(std::vector<NSView*>&)views;
@end
