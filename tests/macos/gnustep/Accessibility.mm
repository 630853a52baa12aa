#import <AppKit/AppKit.h>

#include "platform/macos/support/Held.h"
#include "tests/macos/gnustep/AccessibilityPosts.h"
#include "tests/macos/gnustep/Attached.h"

using tilwin::macos::Attached;
using tilwin::macos::Held;

namespace {

struct Told {
  bool isElement = false;
  Held<NSString*> role{};
  Held<id> value{};
  Held<NSString*> valueDescription{};
  Held<NSString*> help{};
  int valueChanges = 0;
};

Attached<Told> told("NSView");

template <typename Value>
void tell(NSView* view, Value Told::*what, Value value) {
  Told changed = told.of(view);
  changed.*what = std::move(value);
  told.set(view, std::move(changed));
}

}  // namespace

@implementation NSView (Accessibility)

- (BOOL)isAccessibilityElement {
  return told.of(self).isElement;
}

- (void)setAccessibilityElement:(BOOL)isElement {
  tell(self, &Told::isElement, isElement == YES);
}

- (NSString*)accessibilityRole {
  return told.of(self).role.get();
}

- (void)setAccessibilityRole:(NSString*)role {
  tell(self, &Told::role, Held<NSString*>::owned([role copy]));
}

- (id)accessibilityValue {
  return told.of(self).value.get();
}

- (void)setAccessibilityValue:(id)value {
  tell(self, &Told::value, Held<id>::retained(value));
}

- (NSString*)accessibilityValueDescription {
  return told.of(self).valueDescription.get();
}

- (void)setAccessibilityValueDescription:(NSString*)value {
  tell(self, &Told::valueDescription, Held<NSString*>::owned([value copy]));
}

- (NSString*)accessibilityHelp {
  return told.of(self).help.get();
}

- (void)setAccessibilityHelp:(NSString*)help {
  tell(self, &Told::help, Held<NSString*>::owned([help copy]));
}

@end

void NSAccessibilityPostNotification(id element, NSString* notification) {
  if (![notification isEqualToString:NSAccessibilityValueChangedNotification]) return;
  tell(element, &Told::valueChanges, told.of(element).valueChanges + 1);
}

namespace tilwin::macos {

int accessibilityValueChanges(NSView* view) { return told.of(view).valueChanges; }

}  // namespace tilwin::macos
