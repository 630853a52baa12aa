#pragma once

#import <AppKit/AppKit.h>

#include <string>

#include "platform/macos/settings/FormView.h"
#include "platform/macos/settings/KeyButton.h"
#include "platform/macos/settings/Label.h"
#include "platform/macos/settings/Measured.h"
#include "platform/macos/settings/Report.h"
#include "platform/macos/support/Held.h"
#include "platform/ports/FormModel.h"

/// A toggle: a check box and its title, which is broken into lines. A click on the title counts.
@interface TWToggleView : TWFormView <TWFormControl> {
  std::string id_;
  tilwin::macos::Held<TWKeyButton*> box_;
  tilwin::macos::Held<TWLabel*> title_;
}
- (instancetype)initWithReport:(tilwin::macos::Report)report;
- (void)displayModel:(const tilwin::FormToggle&)toggle;
- (BOOL)isOn;
@end
