#include "platform/macos/settings/FieldView.h"

#include <algorithm>
#include <utility>

#include "platform/macos/support/Text.h"

using tilwin::FormTextField;
using tilwin::macos::Report;

namespace {

constexpr CGFloat naturalFieldWidth = 200;
constexpr CGFloat leastFieldHeight = 22;

void replaceEdited(NSText* editor, NSString* wanted) {
  const NSUInteger cursor = NSMaxRange([editor selectedRange]);
  const bool wasAtEnd = cursor == [[editor string] length];
  [editor setString:wanted];
  [editor setSelectedRange:NSMakeRange(wasAtEnd ? [wanted length] : std::min(cursor, [wanted length]), 0)];
}

/// Which command Escape gives depends on the system's key bindings.
bool isEscape(SEL command) {
  return sel_isEqual(command, @selector(cancelOperation:)) || sel_isEqual(command, @selector(complete:));
}

}  // namespace

@implementation TWFieldView

- (instancetype)initWithReport:(Report)report isSearch:(BOOL)isSearch {
  self = [super initWithFrame:NSZeroRect];
  if (self == nil) return nil;
  report_ = std::move(report);
  isSearch_ = isSearch;
  NSTextField* const field = isSearch ? [[NSSearchField alloc] initWithFrame:NSZeroRect]
                                      : [[NSTextField alloc] initWithFrame:NSZeroRect];
  field_ = tilwin::macos::owned(field);
  [field setFont:[NSFont systemFontOfSize:[NSFont systemFontSize]]];
  [[field cell] setScrollable:YES];
  [field setDelegate:self];
  // The button that empties a search field gives an action only.
  if (isSearch) [field setTarget:self];
  if (isSearch) [field setAction:@selector(reportText:)];
  [field setAutoresizingMask:NSViewWidthSizable | NSViewHeightSizable];
  [self addSubview:field];
  return self;
}

- (void)displayModel:(const FormTextField&)field {
  id_ = field.id;
  reported_ = field.text;
  if (tilwin::macos::utf8([field_.get() stringValue]) != field.text) {
    NSString* const wanted = tilwin::macos::text(field.text);
    NSText* const editor = [field_.get() currentEditor];
    editor == nil ? [field_.get() setStringValue:wanted] : replaceEdited(editor, wanted);
  }
  [[field_.get() cell] setPlaceholderString:tilwin::macos::text(field.placeholder)];
  [field_.get() setAccessibilityLabel:tilwin::macos::text(field.label)];
}

- (NSTextField*)field {
  return field_.get();
}

- (void)reportText:(id)sender {
  (void)sender;
  std::string typed = tilwin::macos::utf8([field_.get() stringValue]);
  if (typed == reported_) return;
  reported_ = typed;
  report_(tilwin::form::TextChanged{id_, std::move(typed)});
}

- (void)controlTextDidChange:(NSNotification*)notification {
  [self reportText:[notification object]];
}

- (BOOL)control:(NSControl*)control textView:(NSTextView*)editor doCommandBySelector:(SEL)command {
  (void)control;
  if (!isEscape(command)) return NO;
  if (isSearch_ && [[editor string] length] > 0) {
    [editor setString:@""];
    [self reportText:self];
  } else {
    [[self window] performClose:self];
  }
  return YES;
}

- (const std::string&)formId {
  return id_;
}

- (NSView*)keyView {
  return field_.get();
}

- (void)setRemark:(NSString*)remark {
  [field_.get() setAccessibilityHelp:remark];
}

- (CGFloat)naturalWidth {
  return naturalFieldWidth;
}

- (CGFloat)heightForWidth:(CGFloat)width {
  (void)width;
  return std::max(tilwin::macos::naturalSize(field_.get()).height, leastFieldHeight);
}

@end
