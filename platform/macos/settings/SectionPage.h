#pragma once

#import <AppKit/AppKit.h>

#include <string>
#include <vector>

#include "platform/macos/settings/FieldView.h"
#include "platform/macos/settings/FormView.h"
#include "platform/macos/settings/GroupView.h"
#include "platform/macos/settings/KeptViews.h"
#include "platform/macos/settings/Label.h"
#include "platform/macos/settings/Report.h"
#include "platform/ports/FormModel.h"

/// What is scrolled: counts from the top.
@interface TWScrolledView : TWFormView
@end

/// A section: title, help and search field at the top, and the groups, which scroll.
@interface TWSectionPage : TWFormView {
  std::string section_;
  tilwin::macos::Held<TWLabel*> title_;
  tilwin::macos::Held<TWLabel*> help_;
  tilwin::macos::Held<TWLabel*> emptyText_;
  tilwin::macos::Held<TWFieldView*> search_;
  tilwin::macos::Held<NSScrollView*> scroll_;
  tilwin::macos::Held<TWScrolledView*> scrolled_;
  tilwin::macos::KeptViews<TWGroupView> groups_;
}
- (instancetype)initWithReport:(tilwin::macos::Report)report;
- (void)displayModel:(const tilwin::FormSection&)section;
/// The id of the section that is shown.
- (const std::string&)formId;
/// Puts its parts where they belong in its frame.
- (void)arrange;
/// Appends the views of its controls that take the keyboard focus, in reading order.
- (void)addKeyViewsTo:(std::vector<NSView*>&)views;
/// Puts the keyboard focus into the search field. Returns whether there is one.
- (BOOL)focusSearch;
@end
