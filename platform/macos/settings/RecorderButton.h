#pragma once

#import <AppKit/AppKit.h>

#include <string>

#include "platform/macos/settings/PushButton.h"
#include "platform/macos/settings/Report.h"
#include "platform/ports/FormModel.h"

/// A recorder: looks like the cap of a key, with an accented border while it records.
@interface TWRecorderButton : TWKeyButton <TWFormControl> {
  tilwin::FormRecorder recorder_;
  tilwin::macos::Report report_;
}
- (instancetype)initWithReport:(tilwin::macos::Report)report;
/// Takes the keyboard focus when the recording starts.
- (void)displayModel:(const tilwin::FormRecorder&)recorder;
@end
