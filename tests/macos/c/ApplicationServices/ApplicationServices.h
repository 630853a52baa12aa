#pragma once

/// What the adapters use of the accessibility interface in Application Services. Written from its public
/// documentation; on macOS the framework's own header is found instead. Main thread.

#include <CoreFoundation/CoreFoundation.h>
#include <sys/types.h>

#include "tests/macos/Introduced.h"

// NOLINTBEGIN(modernize-use-using): the language is that of the system.
extern "C" {

typedef const struct __AXUIElement* AXUIElementRef;
typedef const struct __AXValue* AXValueRef;

enum INTRODUCED(10.2) AXError : SInt32 {
  kAXErrorSuccess = 0,
  kAXErrorFailure = -25200,
  kAXErrorIllegalArgument = -25201,
  kAXErrorInvalidUIElement = -25202,
  kAXErrorInvalidUIElementObserver = -25203,
  kAXErrorCannotComplete = -25204,
  kAXErrorAttributeUnsupported = -25205,
  kAXErrorActionUnsupported = -25206,
  kAXErrorNotificationUnsupported = -25207,
  kAXErrorNotImplemented = -25208,
  kAXErrorNotificationAlreadyRegistered = -25209,
  kAXErrorNotificationNotRegistered = -25210,
  kAXErrorAPIDisabled = -25211,
  kAXErrorNoValue = -25212,
  kAXErrorParameterizedAttributeUnsupported = -25213,
  kAXErrorNotEnoughPrecision = -25214,
};
typedef enum AXError AXError;

enum INTRODUCED(10.3) AXValueType : UInt32 {
  kAXValueTypeIllegal INTRODUCED(10.11) = 0,
  kAXValueTypeCGPoint INTRODUCED(10.11) = 1,
  kAXValueTypeCGSize INTRODUCED(10.11) = 2,
  kAXValueTypeCGRect INTRODUCED(10.11) = 3,
  kAXValueTypeCFRange INTRODUCED(10.11) = 4,
  kAXValueTypeAXError INTRODUCED(10.11) = 5,
};
typedef enum AXValueType AXValueType;

CFTypeID AXUIElementGetTypeID(void) INTRODUCED(10.2);
AXUIElementRef AXUIElementCreateApplication(pid_t processID) INTRODUCED(10.2);
AXUIElementRef AXUIElementCreateSystemWide(void) INTRODUCED(10.2);
/// `value` is set on success only, and then belongs to the caller.
AXError AXUIElementCopyAttributeValue(AXUIElementRef element, CFStringRef attribute, CFTypeRef* value)
    INTRODUCED(10.2);
AXError AXUIElementSetAttributeValue(AXUIElementRef element, CFStringRef attribute, CFTypeRef value)
    INTRODUCED(10.2);
/// `element` is set on success only, and then belongs to the caller.
AXError AXUIElementCopyElementAtPosition(AXUIElementRef application, float x, float y,
                                         AXUIElementRef* element) INTRODUCED(10.2);
AXError AXUIElementGetPid(AXUIElementRef element, pid_t* processID) INTRODUCED(10.2);
/// How long a call waits for the program it asks. For the system-wide element it is that of all calls of this
/// process, where 0 means the system's default; for another element, that of calls for this object alone,
/// where 0 means the one of all calls.
AXError AXUIElementSetMessagingTimeout(AXUIElementRef element, float seconds) INTRODUCED(10.4);

CFTypeID AXValueGetTypeID(void) INTRODUCED(10.3);
AXValueRef AXValueCreate(AXValueType type, const void* value) INTRODUCED(10.3);
/// False if the value is of another type; `to` is then left alone.
Boolean AXValueGetValue(AXValueRef value, AXValueType type, void* to) INTRODUCED(10.3);

Boolean AXIsProcessTrusted(void) INTRODUCED(10.4);
/// A Boolean among the options of the next function: whether to ask the user if the process is not trusted.
extern const CFStringRef kAXTrustedCheckOptionPrompt INTRODUCED(10.9);
Boolean AXIsProcessTrustedWithOptions(CFDictionaryRef options) INTRODUCED(10.9);

}  // extern "C"
// NOLINTEND(modernize-use-using)
