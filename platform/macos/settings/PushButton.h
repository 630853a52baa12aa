#pragma once

#import <AppKit/AppKit.h>

#include "platform/macos/settings/KeyButton.h"
#include "platform/macos/settings/Measured.h"
#include "platform/ports/FormModel.h"

/// A button with a title, a symbol, or both.
@interface TWPushButton : TWReportingButton <TWFormControl> {
  tilwin::FormSymbol symbol_;
}
- (void)displayModel:(const tilwin::FormButton&)button;
@end
