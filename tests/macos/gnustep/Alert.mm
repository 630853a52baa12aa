#import <AppKit/AppKit.h>

#include <algorithm>

#include "tests/macos/gnustep/KeptWindows.h"

using tilwin::macos::Held;
using tilwin::macos::owned;
using tilwin::macos::retained;

namespace {

constexpr CGFloat margin = 20;
constexpr CGFloat iconSide = 64;
constexpr CGFloat textLeft = margin + iconSide + 16;
constexpr CGFloat leastTextWidth = 300;
constexpr CGFloat spacing = 10;
constexpr CGFloat buttonHeight = 26;
constexpr CGFloat leastButtonWidth = 80;
constexpr CGFloat textInset = 2;

/// A label of this width, as high as its text needs.
Held<NSTextField*> makeLabel(NSString* text, NSFont* font, CGFloat width) {
  auto label = owned([[NSTextField alloc] initWithFrame:NSMakeRect(0, 0, width, 0)]);
  [label.get() setStringValue:text];
  [label.get() setFont:font];
  [label.get() setEditable:NO];
  [label.get() setBezeled:NO];
  [label.get() setDrawsBackground:NO];
  [[label.get() cell] setWraps:YES];
  const NSRect lines =
      [[label.get() attributedStringValue] boundingRectWithSize:NSMakeSize(width - 2 * textInset, 10000)
                                                        options:NSStringDrawingUsesLineFragmentOrigin];
  [label.get() setFrameSize:NSMakeSize(width, std::ceil(NSHeight(lines)) + 2)];
  return label;
}

/// Puts views under each other, from the top.
class Column {
public:
  explicit Column(NSView* content) : content_(content), top_(NSMaxY([content bounds]) - margin) {}

  void add(NSView* view, CGFloat left) {
    top_ -= NSHeight([view frame]);
    [view setFrameOrigin:NSMakePoint(left, top_)];
    [content_ addSubview:view];
    top_ -= spacing;
  }

private:
  NSView* content_;
  CGFloat top_;
};

}  // namespace

/// AppKit takes Command-period for Escape.
@interface TWAlertPanel : NSPanel
@end

@implementation TWAlertPanel

- (BOOL)performKeyEquivalent:(NSEvent*)event {
  if ([super performKeyEquivalent:event]) return YES;
  const bool isCommand = ([event modifierFlags] & NSEventModifierFlagCommand) != 0;
  if (!isCommand || ![[event characters] isEqualToString:@"."]) return NO;
  return [super performKeyEquivalent:[NSEvent keyEventWithType:NSKeyDown
                                                            location:NSZeroPoint
                                                       modifierFlags:0
                                                           timestamp:[event timestamp]
                                                        windowNumber:[event windowNumber]
                                                             context:nil
                                                          characters:@"\033"
                                         charactersIgnoringModifiers:@"\033"
                                                           isARepeat:NO
                                                             keyCode:0x35]];
}

@end

@implementation TWAlert

- (id)init {
  self = [super init];
  messageText_ = retained(@"");
  informativeText_ = retained(@"");
  buttons_ = owned([[NSMutableArray alloc] init]);
  panel_ = Held<NSPanel*>::owned([[TWAlertPanel alloc] initWithContentRect:NSZeroRect
                                                                 styleMask:NSTitledWindowMask
                                                                   backing:NSBackingStoreBuffered
                                                                     defer:YES]);
  [panel_.get() setReleasedWhenClosed:NO];
  [panel_.get() setHidesOnDeactivate:NO];
  // Empty, a window manager would write something of its own.
  [panel_.get() setTitle:@" "];
  [panel_.get() setLevel:NSModalPanelWindowLevel];
  return self;
}
- (void)dealloc {
  tilwin::macos::keepWindow(panel_.get());
  [super dealloc];
}
- (NSString*)messageText {
  return messageText_.get();
}
- (void)setMessageText:(NSString*)text {
  messageText_ = Held<NSString*>::owned([text copy]);
}
- (NSString*)informativeText {
  return informativeText_.get();
}
- (void)setInformativeText:(NSString*)text {
  informativeText_ = Held<NSString*>::owned([text copy]);
}
- (NSArray*)buttons {
  return buttons_.get();
}
- (NSView*)accessoryView {
  return accessoryView_.get();
}
- (void)setAccessoryView:(NSView*)view {
  accessoryView_ = retained(view);
}
- (id)window {
  return panel_.get();
}

- (NSButton*)addButtonWithTitle:(NSString*)title {
  const auto button = owned([[NSButton alloc] initWithFrame:NSZeroRect]);
  [button.get() setTitle:title];
  [button.get() setBezelStyle:NSRoundedBezelStyle];
  [button.get() setTarget:self];
  [button.get() setAction:@selector(end:)];
  [button.get() setTag:NSAlertFirstButtonReturn + static_cast<NSInteger>([buttons_.get() count])];
  if ([buttons_.get() count] == 0) {
    [button.get() setKeyEquivalent:@"\r"];
  } else if ([title isEqualToString:@"Cancel"]) {
    [button.get() setKeyEquivalent:@"\033"];
  }
  [buttons_.get() addObject:button.get()];
  return button.get();
}

- (void)layout {
  const CGFloat accessoryWidth = NSWidth([accessoryView_.get() frame]);
  const CGFloat width = std::max(leastTextWidth, accessoryWidth);
  NSMutableArray* const column = [NSMutableArray array];
  [column addObject:makeLabel(messageText_.get(), [NSFont boldSystemFontOfSize:13], width).get()];
  if ([informativeText_.get() length] > 0) {
    [column addObject:makeLabel(informativeText_.get(), [NSFont systemFontOfSize:11], width).get()];
  }
  if (accessoryView_) [column addObject:accessoryView_.get()];
  CGFloat height = 0;
  for (NSView* view in column) height += NSHeight([view frame]) + spacing;
  height = std::max(height, iconSide);
  [panel_.get()
      setContentSize:NSMakeSize(textLeft + width + margin, margin + height + buttonHeight + 2 * spacing)];
  [self place:column];
}

- (void)place:(NSArray*)column {
  NSView* const content = [panel_.get() contentView];
  Column texts(content);
  for (NSView* view in column) texts.add(view, textLeft);
  const auto icon = owned([[NSImageView alloc] initWithFrame:NSMakeRect(0, 0, iconSide, iconSide)]);
  [icon.get() setImage:[NSApp applicationIconImage]];
  Column(content).add(icon.get(), margin);
  CGFloat right = NSMaxX([content bounds]) - margin;
  for (NSButton* button in buttons_.get()) {
    const CGFloat width = std::max(leastButtonWidth, [[button cell] cellSize].width + 20);
    right -= width;
    [button setFrame:NSMakeRect(right, spacing, width, buttonHeight)];
    right -= spacing;
    [content addSubview:button];
  }
}

- (NSInteger)runModal {
  if ([[[panel_.get() contentView] subviews] count] == 0) [self layout];
  [panel_.get() center];
  const NSInteger code = [NSApp runModalForWindow:panel_.get()];
  [panel_.get() orderOut:nil];
  return code;
}

- (void)end:(id)sender {
  [NSApp stopModalWithCode:[sender tag]];
}

@end
