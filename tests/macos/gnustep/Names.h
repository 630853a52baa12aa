#pragma once

#include "tests/macos/Introduced.h"

/// Names that AppKit gave its constants in macOS 10.12, for those that GNUstep has under the older ones.

static const NSBezelStyle NSBezelStyleRounded INTRODUCED(10.12) = NSRoundedBezelStyle;
static const NSButtonType NSButtonTypeMomentaryPushIn INTRODUCED(10.12) = NSMomentaryPushInButton;
static const NSButtonType NSButtonTypeSwitch INTRODUCED(10.12) = NSSwitchButton;
static const NSCompositingOperation NSCompositingOperationSourceOver INTRODUCED(10.12) =
    NSCompositeSourceOver;
static const NSEventMask NSEventMaskKeyDown INTRODUCED(10.12) = NSKeyDownMask;
static const NSEventModifierFlags NSEventModifierFlagCommand INTRODUCED(10.12) = NSCommandKeyMask;
static const NSEventModifierFlags NSEventModifierFlagControl INTRODUCED(10.12) = NSControlKeyMask;
static const NSEventModifierFlags NSEventModifierFlagOption INTRODUCED(10.12) = NSAlternateKeyMask;
static const NSEventModifierFlags NSEventModifierFlagShift INTRODUCED(10.12) = NSShiftKeyMask;
static const NSEventType NSEventTypeApplicationDefined INTRODUCED(10.12) = NSApplicationDefined;
static const NSEventType NSEventTypeKeyDown INTRODUCED(10.12) = NSKeyDown;
