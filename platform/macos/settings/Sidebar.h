#pragma once

#import <AppKit/AppKit.h>

#include <string>
#include <vector>

#include "platform/macos/settings/FormView.h"
#include "platform/macos/settings/Report.h"
#include "platform/macos/support/Held.h"
#include "platform/ports/FormModel.h"

/// The name of a section, with its symbol.
@interface TWSectionButton : NSButton {
  std::string id_;
  tilwin::macos::Report report_;
  tilwin::FormSymbol symbol_;
  BOOL isChosen_;
}
- (instancetype)initWithReport:(tilwin::macos::Report)report;
- (void)displayModel:(const tilwin::FormSection&)section isChosen:(BOOL)isChosen;
- (void)choose:(id)sender;
- (const std::string&)formId;
- (BOOL)isChosen;
@end

/// The list of sections. Chosen by a click or, when the list has the focus, the arrow keys.
@interface TWSidebar : TWFormView {
  std::vector<tilwin::macos::Held<TWSectionButton*>> buttons_;
}
- (instancetype)initWithReport:(tilwin::macos::Report)report;
- (void)displayModel:(const tilwin::FormModel&)form;
/// As wide as the longest title needs, within bounds.
- (CGFloat)naturalWidth;
/// Puts its parts where they belong in its frame.
- (void)arrange;
@end
