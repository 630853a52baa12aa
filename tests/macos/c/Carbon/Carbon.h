#pragma once

/// What the adapters use of the event manager in Carbon. Written from its public documentation; on macOS the
/// framework's own header is found instead. Main thread.

#include <CoreFoundation/CoreFoundation.h>

#include "tests/macos/Introduced.h"

// NOLINTBEGIN(modernize-use-using): the language is that of the system.
extern "C" {

typedef unsigned long ByteCount;
typedef unsigned long ItemCount;
typedef UInt32 OptionBits;
typedef OSType EventParamName;
typedef OSType EventParamType;
typedef struct OpaqueEventRef* EventRef;
typedef struct OpaqueEventHandlerRef* EventHandlerRef;
typedef struct OpaqueEventHandlerCallRef* EventHandlerCallRef;
typedef struct OpaqueEventTargetRef* EventTargetRef;
typedef struct EventHotKeyRefStruct* EventHotKeyRef;

struct EventTypeSpec {
  OSType eventClass;
  UInt32 eventKind;
};
typedef struct EventTypeSpec EventTypeSpec;

struct EventHotKeyID {
  OSType signature;
  UInt32 id;
};
typedef struct EventHotKeyID EventHotKeyID;

typedef OSStatus (*EventHandlerProcPtr)(EventHandlerCallRef call, EventRef event, void* userData);
typedef EventHandlerProcPtr EventHandlerUPP;

enum INTRODUCED(10.0) : OSStatus {
  noErr = 0,
  paramErr = -50,
  eventHandlerAlreadyInstalledErr = -9866,
  eventParameterNotFoundErr = -9870,
  eventNotHandledErr = -9874,
  eventHotKeyExistsErr = -9878,
  eventHotKeyInvalidErr = -9879,
};
enum INTRODUCED(10.0) : OSType { kEventClassKeyboard = 0x6b657962 };  // "keyb"
enum INTRODUCED(10.0) : UInt32 { kEventHotKeyPressed = 5 };
enum INTRODUCED(10.0) : EventParamName { kEventParamDirectObject = 0x2d2d2d2d };  // "----"
enum INTRODUCED(10.0) : EventParamType { typeEventHotKeyID = 0x686b6964 };        // "hkid"

/// Belongs to the system.
EventTargetRef GetApplicationEventTarget(void) INTRODUCED(10.0);
/// Of several handlers the one installed last is called first; it returns eventNotHandledErr to let the
/// others see the event. `handler` is given back by RemoveEventHandler; it may be NULL.
OSStatus InstallEventHandler(EventTargetRef target, EventHandlerUPP function, ItemCount typeCount,
                             const EventTypeSpec* types, void* userData, EventHandlerRef* handler)
    INTRODUCED(10.0);
OSStatus RemoveEventHandler(EventHandlerRef handler) INTRODUCED(10.0);
/// `hotKey` is set on success only, and given back by UnregisterEventHotKey.
OSStatus RegisterEventHotKey(UInt32 keyCode, UInt32 modifiers, EventHotKeyID id, EventTargetRef target,
                             OptionBits options, EventHotKeyRef* hotKey) INTRODUCED(10.0);
OSStatus UnregisterEventHotKey(EventHotKeyRef hotKey) INTRODUCED(10.0);
/// Copies a parameter of the event, as much of it as the buffer holds.
OSStatus GetEventParameter(EventRef event, EventParamName name, EventParamType type,
                           EventParamType* actualType, ByteCount capacity, ByteCount* actualSize, void* data)
    INTRODUCED(10.0);

}  // extern "C"
// NOLINTEND(modernize-use-using)
