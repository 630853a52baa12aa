#pragma once

#import <AppKit/AppKit.h>

#include <string>

#include "platform/macos/settings/Report.h"

/// A button that the keyboard reaches whatever the system's settings are. Space and Return press it, once
/// however long they are held.
@interface TWKeyButton : NSButton
@end

/// A button that reports that it is pressed. Those derived from it set `id_` and show what it is.
@interface TWReportingButton : TWKeyButton {
  std::string id_;
  tilwin::macos::Report report_;
}
- (instancetype)initWithReport:(tilwin::macos::Report)report;
- (const std::string&)formId;
- (NSView*)keyView;
- (void)setRemark:(NSString*)remark;
@end
