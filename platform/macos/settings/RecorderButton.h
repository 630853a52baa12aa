#pragma once

#import <AppKit/AppKit.h>

#include "platform/macos/settings/KeyButton.h"
#include "platform/macos/settings/Measured.h"
#include "platform/ports/FormModel.h"

/// A recorder: looks like the cap of a key, with an accented border while it records.
@interface TWRecorderButton : TWReportingButton <TWFormControl> {
  tilwin::FormRecorder recorder_;
}
/// Takes the keyboard focus when the recording starts.
- (void)displayModel:(const tilwin::FormRecorder&)recorder;
@end
