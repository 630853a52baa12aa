#include <CoreFoundation/CoreFoundation.h>

#include "tests/macos/c/objects/Values.h"

namespace {

using namespace tilwin::macos::c;

/// The callbacks of collections that own what is in them.
const void* retainEntry(CFAllocatorRef, const void* entry) { return CFRetain(entry); }
void releaseEntry(CFAllocatorRef, const void* entry) { CFRelease(entry); }

}  // namespace

// NOLINTBEGIN(readability-implicit-bool-conversion): the Boolean of the system is a number.
extern "C" {

const CFArrayCallBacks kCFTypeArrayCallBacks{0, &retainEntry, &releaseEntry, nullptr, &CFEqual};
const CFDictionaryKeyCallBacks kCFTypeDictionaryKeyCallBacks{0,       &retainEntry, &releaseEntry,
                                                             nullptr, &CFEqual,     &CFHash};
const CFDictionaryValueCallBacks kCFTypeDictionaryValueCallBacks{0, &retainEntry, &releaseEntry, nullptr,
                                                                 &CFEqual};

CFTypeID CFArrayGetTypeID() { return static_cast<CFTypeID>(ValueType::array); }

CFArrayRef CFArrayCreate(CFAllocatorRef, const void** values, CFIndex count,
                         const CFArrayCallBacks* callBacks) {
  return static_cast<CFArrayRef>(
      objects().make<ArrayObject>(std::vector<CFTypeRef>(values, values + count), callBacks != nullptr));
}

CFIndex CFArrayGetCount(CFArrayRef array) {
  const auto* const used = objects().used<ArrayObject>(array, "CFArrayGetCount");
  return used == nullptr ? 0 : static_cast<CFIndex>(used->entries.size());
}

const void* CFArrayGetValueAtIndex(CFArrayRef array, CFIndex index) {
  const auto* const used = objects().used<ArrayObject>(array, "CFArrayGetValueAtIndex");
  return used == nullptr ? nullptr : used->entries.at(static_cast<std::size_t>(index));
}

CFDictionaryRef CFDictionaryCreate(CFAllocatorRef, const void** keys, const void** values, CFIndex count,
                                   const CFDictionaryKeyCallBacks* keyCallBacks,
                                   const CFDictionaryValueCallBacks* valueCallBacks) {
  DictionaryObject::Entries entries;
  for (CFIndex index = 0; index < count; ++index) entries.emplace_back(keys[index], values[index]);
  return static_cast<CFDictionaryRef>(objects().make<DictionaryObject>(
      std::move(entries), keyCallBacks != nullptr, valueCallBacks != nullptr));
}

const void* CFDictionaryGetValue(CFDictionaryRef dictionary, const void* key) {
  const auto* const used = objects().used<DictionaryObject>(dictionary, "CFDictionaryGetValue");
  if (used == nullptr) return nullptr;
  for (const auto& [each, value] : used->entries) {
    if (used->isSameKey(each, key)) return value;
  }
  return nullptr;
}

}  // extern "C"
// NOLINTEND(readability-implicit-bool-conversion)
