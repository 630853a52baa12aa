#pragma once

/// What the adapters use of Core Foundation. Written from its public documentation; on macOS the framework's
/// own header is found instead.
///
/// Ownership: what a function with Create or Copy in its name returns belongs to the caller, who gives it
/// back by CFRelease; what any other function returns belongs to somebody else. Any thread.

#include "tests/macos/Introduced.h"
#include "tests/macos/c/MacTypes.h"

// NOLINTBEGIN(modernize-use-using): the language is that of the system.
extern "C" {

typedef unsigned char Boolean;
typedef unsigned char UInt8;
typedef signed int SInt32;
typedef unsigned int UInt32;
typedef SInt32 OSStatus;
typedef UInt32 FourCharCode;
typedef FourCharCode OSType;
typedef double CGFloat;

typedef const void* CFTypeRef;
typedef unsigned long CFTypeID;
typedef unsigned long CFHashCode;
typedef signed long CFIndex;
typedef UInt32 CFStringEncoding;
typedef const struct __CFAllocator* CFAllocatorRef;
typedef const struct __CFArray* CFArrayRef;
typedef const struct __CFBoolean* CFBooleanRef;
typedef const struct __CFData* CFDataRef;
typedef const struct __CFDictionary* CFDictionaryRef;
typedef const struct __CFString* CFStringRef;
typedef CFTypeRef CFPropertyListRef;

typedef struct {
  CFIndex location;
  CFIndex length;
} CFRange;

struct CGPoint {
  CGFloat x;
  CGFloat y;
};
typedef struct CGPoint CGPoint;

struct CGSize {
  CGFloat width;
  CGFloat height;
};
typedef struct CGSize CGSize;

/// NULL, the default allocator.
extern const CFAllocatorRef kCFAllocatorDefault INTRODUCED(10.0);

CFTypeRef CFRetain(CFTypeRef object) INTRODUCED(10.0);
void CFRelease(CFTypeRef object) INTRODUCED(10.0);
CFTypeID CFGetTypeID(CFTypeRef object) INTRODUCED(10.0);
Boolean CFEqual(CFTypeRef first, CFTypeRef second) INTRODUCED(10.0);
/// Equal objects have the same hash.
CFHashCode CFHash(CFTypeRef object) INTRODUCED(10.0);

/// The two objects there are; they live for ever, and retaining and releasing them does nothing.
extern const CFBooleanRef kCFBooleanTrue INTRODUCED(10.0);
extern const CFBooleanRef kCFBooleanFalse INTRODUCED(10.0);
CFTypeID CFBooleanGetTypeID(void) INTRODUCED(10.0);
Boolean CFBooleanGetValue(CFBooleanRef boolean) INTRODUCED(10.0);

enum INTRODUCED(10.0) : CFStringEncoding { kCFStringEncodingUTF8 = 0x08000100 };
CFTypeID CFStringGetTypeID(void) INTRODUCED(10.0);
/// NULL if the bytes are not in the encoding. A byte order mark before an external representation is left
/// out.
CFStringRef CFStringCreateWithBytes(CFAllocatorRef allocator, const UInt8* bytes, CFIndex count,
                                    CFStringEncoding encoding, Boolean isExternalRepresentation)
    INTRODUCED(10.0);
/// In UTF-16 code units.
CFIndex CFStringGetLength(CFStringRef string) INTRODUCED(10.0);
/// Returns how many UTF-16 code units were converted: fewer than asked for where the buffer is full, or at
/// the first that the encoding cannot express if `lossByte` is 0. With no buffer it only counts the bytes.
CFIndex CFStringGetBytes(CFStringRef string, CFRange range, CFStringEncoding encoding, UInt8 lossByte,
                         Boolean isExternalRepresentation, UInt8* buffer, CFIndex capacity,
                         CFIndex* usedBytes) INTRODUCED(10.0);

CFTypeID CFDataGetTypeID(void) INTRODUCED(10.0);
CFDataRef CFDataCreate(CFAllocatorRef allocator, const UInt8* bytes, CFIndex count) INTRODUCED(10.0);
CFIndex CFDataGetLength(CFDataRef data) INTRODUCED(10.0);
/// Valid as long as the data.
const UInt8* CFDataGetBytePtr(CFDataRef data) INTRODUCED(10.0);

typedef const void* (*CFArrayRetainCallBack)(CFAllocatorRef allocator, const void* value);
typedef void (*CFArrayReleaseCallBack)(CFAllocatorRef allocator, const void* value);
typedef CFStringRef (*CFArrayCopyDescriptionCallBack)(const void* value);
typedef Boolean (*CFArrayEqualCallBack)(const void* first, const void* second);
typedef struct {
  CFIndex version;
  CFArrayRetainCallBack retain;
  CFArrayReleaseCallBack release;
  CFArrayCopyDescriptionCallBack copyDescription;
  CFArrayEqualCallBack equal;
} CFArrayCallBacks;
/// For arrays that own their entries. Without callbacks an array owns none of them.
extern const CFArrayCallBacks kCFTypeArrayCallBacks INTRODUCED(10.0);
CFTypeID CFArrayGetTypeID(void) INTRODUCED(10.0);
CFArrayRef CFArrayCreate(CFAllocatorRef allocator, const void** values, CFIndex count,
                         const CFArrayCallBacks* callBacks) INTRODUCED(10.0);
CFIndex CFArrayGetCount(CFArrayRef array) INTRODUCED(10.0);
const void* CFArrayGetValueAtIndex(CFArrayRef array, CFIndex index) INTRODUCED(10.0);

typedef struct {
  CFIndex version;
  CFArrayRetainCallBack retain;
  CFArrayReleaseCallBack release;
  CFArrayCopyDescriptionCallBack copyDescription;
  CFArrayEqualCallBack equal;
  CFHashCode (*hash)(const void* value);
} CFDictionaryKeyCallBacks;
typedef CFArrayCallBacks CFDictionaryValueCallBacks;
/// For dictionaries that own their keys and values. Without callbacks a dictionary owns none of them.
extern const CFDictionaryKeyCallBacks kCFTypeDictionaryKeyCallBacks INTRODUCED(10.0);
extern const CFDictionaryValueCallBacks kCFTypeDictionaryValueCallBacks INTRODUCED(10.0);
CFDictionaryRef CFDictionaryCreate(CFAllocatorRef allocator, const void** keys, const void** values,
                                   CFIndex count, const CFDictionaryKeyCallBacks* keyCallBacks,
                                   const CFDictionaryValueCallBacks* valueCallBacks) INTRODUCED(10.0);
/// NULL if the key is not in it. Without callbacks for keys, a key is in it only if it is the same pointer.
const void* CFDictionaryGetValue(CFDictionaryRef dictionary, const void* key) INTRODUCED(10.0);

typedef double CFTimeInterval;
typedef struct __CFRunLoop* CFRunLoopRef;
typedef struct __CFRunLoopSource* CFRunLoopSourceRef;
typedef CFStringRef CFRunLoopMode;
extern const CFRunLoopMode kCFRunLoopDefaultMode INTRODUCED(10.0);
extern const CFRunLoopMode kCFRunLoopCommonModes INTRODUCED(10.0);
/// Both live as long as their thread.
CFRunLoopRef CFRunLoopGetCurrent(void) INTRODUCED(10.0);
CFRunLoopRef CFRunLoopGetMain(void) INTRODUCED(10.0);
/// The run loop retains the source until that is invalid.
void CFRunLoopAddSource(CFRunLoopRef loop, CFRunLoopSourceRef source, CFRunLoopMode mode) INTRODUCED(10.0);
/// In the default mode, until it is stopped or has no sources.
void CFRunLoopRun(void) INTRODUCED(10.0);
void CFRunLoopStop(CFRunLoopRef loop) INTRODUCED(10.0);

typedef struct __CFMessagePort* CFMessagePortRef;
typedef struct {
  CFIndex version;
  void* info;
  const void* (*retain)(const void* info);
  void (*release)(const void* info);
  CFStringRef (*copyDescription)(const void* info);
} CFMessagePortContext;
/// What it returns is released by the system. NULL: no answer.
typedef CFDataRef (*CFMessagePortCallBack)(CFMessagePortRef local, SInt32 message, CFDataRef data,
                                           void* info);
typedef void (*CFMessagePortInvalidationCallBack)(CFMessagePortRef port, void* info);
enum INTRODUCED(10.0) : SInt32 {
  kCFMessagePortSuccess = 0,
  kCFMessagePortSendTimeout = -1,
  kCFMessagePortReceiveTimeout = -2,
  kCFMessagePortIsInvalid = -3,
  kCFMessagePortTransportError = -4,
  kCFMessagePortBecameInvalidError = -5
};
/// NULL if another process has a port with that name. If this one has, that port, and `shouldFreeInfo` is
/// set: the context is not used.
CFMessagePortRef CFMessagePortCreateLocal(CFAllocatorRef allocator, CFStringRef name,
                                          CFMessagePortCallBack callBack, CFMessagePortContext* context,
                                          Boolean* shouldFreeInfo) INTRODUCED(10.0);
/// NULL if nobody has a port with that name.
CFMessagePortRef CFMessagePortCreateRemote(CFAllocatorRef allocator, CFStringRef name) INTRODUCED(10.0);
CFRunLoopSourceRef CFMessagePortCreateRunLoopSource(CFAllocatorRef allocator, CFMessagePortRef local,
                                                    CFIndex order) INTRODUCED(10.0);
void CFMessagePortSetInvalidationCallBack(CFMessagePortRef port, CFMessagePortInvalidationCallBack callBack)
    INTRODUCED(10.0);
/// Gives up the name; sources of the port become invalid.
void CFMessagePortInvalidate(CFMessagePortRef port) INTRODUCED(10.0);
/// Without a reply mode no answer is waited for. The answer belongs to the caller; it is NULL if there is
/// none.
SInt32 CFMessagePortSendRequest(CFMessagePortRef remote, SInt32 message, CFDataRef data,
                                CFTimeInterval sendTimeout, CFTimeInterval receiveTimeout,
                                CFStringRef replyMode, CFDataRef* answer) INTRODUCED(10.0);

/// The domain of this program.
extern const CFStringRef kCFPreferencesCurrentApplication INTRODUCED(10.0);
/// NULL if the domain has no such key.
CFPropertyListRef CFPreferencesCopyAppValue(CFStringRef key, CFStringRef applicationID) INTRODUCED(10.0);
/// NULL removes the key. The value, which a property list can hold, is stored by the next
/// synchronization.
void CFPreferencesSetAppValue(CFStringRef key, CFPropertyListRef value, CFStringRef applicationID)
    INTRODUCED(10.0);
/// Stores what has been set and reads what others have stored meanwhile. Returns whether that worked.
Boolean CFPreferencesAppSynchronize(CFStringRef applicationID) INTRODUCED(10.0);

}  // extern "C"
// NOLINTEND(modernize-use-using)
