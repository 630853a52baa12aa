#pragma once

/// Names that AppKit gave its constants in macOS 10.12, for those that GNUstep has under the older ones.

static const NSBezelStyle NSBezelStyleRounded = NSRoundedBezelStyle;
static const NSButtonType NSButtonTypeMomentaryPushIn = NSMomentaryPushInButton;
static const NSButtonType NSButtonTypeSwitch = NSSwitchButton;
static const NSCompositingOperation NSCompositingOperationSourceOver = NSCompositeSourceOver;
static const NSEventMask NSEventMaskKeyDown = NSKeyDownMask;
static const NSEventModifierFlags NSEventModifierFlagCommand = NSCommandKeyMask;
static const NSEventModifierFlags NSEventModifierFlagControl = NSControlKeyMask;
static const NSEventModifierFlags NSEventModifierFlagOption = NSAlternateKeyMask;
static const NSEventModifierFlags NSEventModifierFlagShift = NSShiftKeyMask;
static const NSEventType NSEventTypeApplicationDefined = NSApplicationDefined;
static const NSEventType NSEventTypeKeyDown = NSKeyDown;
