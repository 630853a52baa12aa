#pragma once

#import <AppKit/AppKit.h>

#include <string>

#include "platform/macos/settings/FormView.h"
#include "platform/macos/settings/Measured.h"
#include "platform/macos/settings/Report.h"
#include "platform/macos/support/Held.h"
#include "platform/ports/FormModel.h"

/// A line of text, or a search field, which Escape empties. Line breaks in it are reported as spaces.
@interface TWFieldView : TWFormView <TWFormControl, NSTextFieldDelegate> {
  std::string id_;
  std::string reported_;  ///< the text that was reported or displayed last
  BOOL isSearch_;
  tilwin::macos::Held<NSTextField*> field_;
}
- (instancetype)initWithReport:(tilwin::macos::Report)report isSearch:(BOOL)isSearch;
/// Text that equals the typed one leaves cursor and selection alone; other text keeps the cursor as near as
/// it can.
- (void)displayModel:(const tilwin::FormTextField&)field;
- (NSTextField*)field;
@end
