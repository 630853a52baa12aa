#include "platform/macos/menu/MacDialogs.h"

#import <AppKit/AppKit.h>

#include "platform/macos/support/Held.h"
#include "platform/macos/support/Text.h"

/// Takes no room in a dialog and cancels it with Escape or Command-period, for one without a button for that.
@interface TWEscapeKey : NSView
@end

@implementation TWEscapeKey

- (BOOL)performKeyEquivalent:(NSEvent*)event {
  NSString* const key = [event charactersIgnoringModifiers];
  const bool isCommand = ([event modifierFlags] & NSEventModifierFlagCommand) != 0;
  if (![key isEqualToString:isCommand ? @"." : @"\033"]) return NO;
  [NSApp stopModalWithCode:NSModalResponseCancel];
  return YES;
}

@end

namespace tilwin::macos {
namespace {

NSString* const cancelTitle = @"Cancel";

Held<NSAlert*> makeAlert(const DialogText& shown, const std::string& accept) {
  auto alert = owned([[NSAlert alloc] init]);
  [alert.get() setMessageText:text(shown.title)];
  [alert.get() setInformativeText:text(shown.message)];
  [alert.get() addButtonWithTitle:text(accept)];
  return alert;
}

/// Returns whether the first button ended it.
bool run(NSAlert* alert) {
  const AutoreleasePool pool;
  return [alert runModal] == NSAlertFirstButtonReturn;
}

Held<NSTextField*> makeField(const DialogText& shown, const std::string& placeholder) {
  auto field = owned([[NSTextField alloc] initWithFrame:NSMakeRect(0, 0, 360, 24)]);
  auto* const cell = static_cast<NSTextFieldCell*>([field.get() cell]);
  [cell setPlaceholderString:text(placeholder)];
  // One line, however long the text.
  [cell setUsesSingleLineMode:YES];
  [cell setScrollable:YES];
  [field.get() setAccessibilityLabel:text(shown.title)];
  return field;
}

}  // namespace

void MacDialogs::activate() { [NSApp activateIgnoringOtherApps:YES]; }

void MacDialogs::alert(const DialogText& text) {
  const auto alert = makeAlert(text, "OK");
  const auto escape = owned([[TWEscapeKey alloc] initWithFrame:NSZeroRect]);
  [alert.get() layout];
  [[[alert.get() window] contentView] addSubview:escape.get()];
  run(alert.get());
}

std::optional<std::string> MacDialogs::prompt(const DialogText& text, const std::string& placeholder) {
  const auto alert = makeAlert(text, "OK");
  const auto field = makeField(text, placeholder);
  [alert.get() addButtonWithTitle:cancelTitle];
  [alert.get() setAccessoryView:field.get()];
  [alert.get() layout];
  [[alert.get() window] setInitialFirstResponder:field.get()];
  if (!run(alert.get())) return std::nullopt;
  return utf8([field.get() stringValue]);
}

bool MacDialogs::confirm(const DialogText& text, const std::string& accept) {
  const auto alert = makeAlert(text, accept);
  [alert.get() addButtonWithTitle:cancelTitle];
  return run(alert.get());
}

}  // namespace tilwin::macos
