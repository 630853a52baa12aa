#pragma once

#import <AppKit/AppKit.h>

#include "platform/macos/settings/Report.h"

/// A view in a form: counts from the top left, in points.
@interface TWFormView : NSView {
  tilwin::macos::Report report_;  ///< empty if the user can do nothing in it
}
- (instancetype)initWithReport:(tilwin::macos::Report)report;
@end
