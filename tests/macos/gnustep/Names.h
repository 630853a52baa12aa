#pragma once

/// Names that AppKit gave its constants in macOS 10.12, for those that GNUstep has under the older ones.

static const NSEventModifierFlags NSEventModifierFlagCommand = NSCommandKeyMask;
static const NSEventType NSEventTypeApplicationDefined = NSApplicationDefined;
