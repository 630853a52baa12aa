#pragma once

#import <AppKit/AppKit.h>

#include <string>

#include "platform/macos/settings/Measured.h"
#include "platform/macos/settings/Report.h"
#include "platform/ports/FormModel.h"

/// A button that the keyboard reaches whatever the system's settings are. Space and Return press it, once
/// however long they are held.
@interface TWKeyButton : NSButton
@end

/// A button with a title, a symbol, or both.
@interface TWPushButton : TWKeyButton <TWFormControl> {
  std::string id_;
  tilwin::macos::Report report_;
  tilwin::FormSymbol symbol_;
}
- (instancetype)initWithReport:(tilwin::macos::Report)report;
- (void)displayModel:(const tilwin::FormButton&)button;
@end
