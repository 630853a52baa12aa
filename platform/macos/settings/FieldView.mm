#include "platform/macos/settings/FieldView.h"

#include <algorithm>
#include <utility>

#include "platform/macos/support/Keys.h"
#include "platform/macos/support/Text.h"

using tilwin::FormTextField;
using tilwin::macos::Report;

namespace {

constexpr CGFloat leastFieldHeight = 22;

/// So that it can be undone.
void replaceEdited(NSTextView* editor, NSString* wanted) {
  const NSUInteger cursor = NSMaxRange([editor selectedRange]);
  const NSUInteger length = [[editor string] length];
  if (![editor shouldChangeTextInRange:NSMakeRange(0, length) replacementString:wanted]) return;
  [editor setString:wanted];
  [editor setSelectedRange:NSMakeRange(cursor == length ? [wanted length] : std::min(cursor, [wanted length]),
                                       0)];
  [editor didChangeText];
}

/// Which command Escape gives depends on the system's key bindings. `complete:` has other keys too.
bool isEscape(SEL command, NSEvent* event) {
  if (sel_isEqual(command, @selector(cancelOperation:))) return true;
  return sel_isEqual(command, @selector(complete:)) && [event type] == NSEventTypeKeyDown &&
         tilwin::macos::typedCharacter(event) == tilwin::macos::escapeCharacter &&
         ([event modifierFlags] & NSEventModifierFlagOption) == 0;
}

/// Pasted text may have line breaks.
std::string onOneLine(NSString* text) {
  NSArray* const lines = [text componentsSeparatedByCharactersInSet:[NSCharacterSet newlineCharacterSet]];
  return tilwin::macos::utf8([lines componentsJoinedByString:@" "]);
}

}  // namespace

@implementation TWFieldView

- (instancetype)initWithReport:(Report)report isSearch:(BOOL)isSearch {
  self = [super initWithReport:std::move(report)];
  if (self == nil) return nil;
  isSearch_ = isSearch;
  NSTextField* const field = isSearch ? [[NSSearchField alloc] initWithFrame:NSZeroRect]
                                      : [[NSTextField alloc] initWithFrame:NSZeroRect];
  field_ = tilwin::macos::owned(field);
  [field setFont:[NSFont systemFontOfSize:[NSFont systemFontSize]]];
  [[field cell] setScrollable:YES];
  [[field cell] setUsesSingleLineMode:YES];
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
  NSString* const wanted = tilwin::macos::text(field.text);
  reported_ = onOneLine(wanted);
  if (![[field_.get() stringValue] isEqualToString:wanted]) {
    auto* const editor = static_cast<NSTextView*>([field_.get() currentEditor]);
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
  std::string typed = onOneLine([field_.get() stringValue]);
  if (typed == reported_) return;
  reported_ = typed;
  report_(tilwin::form::TextChanged{id_, std::move(typed)});
}

- (void)controlTextDidChange:(NSNotification*)notification {
  [self reportText:[notification object]];
}

- (BOOL)control:(NSControl*)control textView:(NSTextView*)editor doCommandBySelector:(SEL)command {
  (void)control;
  NSEvent* const event = [NSApp currentEvent];
  if (!isEscape(command, event)) return NO;
  if ([event type] == NSEventTypeKeyDown && [event isARepeat]) return YES;
  if (isSearch_ && [[editor string] length] > 0) {
    [editor selectAll:self];
    [editor delete:self];
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

- (CGFloat)heightForWidth:(CGFloat)width {
  (void)width;
  return std::max(tilwin::macos::naturalSize(field_.get()).height, leastFieldHeight);
}

@end
