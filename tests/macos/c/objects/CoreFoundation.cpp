#include <CoreFoundation/CoreFoundation.h>

#include <algorithm>
#include <string_view>

#include "core/support/Utf8.h"
#include "tests/macos/c/objects/Utf16.h"
#include "tests/macos/c/objects/Values.h"

namespace {

using namespace tilwin::macos::c;
using tilwin::Utf8;

constexpr std::string_view byteOrderMark = "\xef\xbb\xbf";

CFTypeID idOf(ValueType type) { return static_cast<CFTypeID>(type); }

std::string_view bytesOf(const UInt8* bytes, CFIndex count) {
  return {reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(count)};
}

/// Text may hold U+FFFD itself.
bool isUtf8(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const auto character = Utf8::next(text, at);
    if (character.codePoint == U'\ufffd' && text.substr(at, 3) != "\xef\xbf\xbd") return false;
    at += character.size;
  }
  return true;
}

}  // namespace

// NOLINTBEGIN(readability-implicit-bool-conversion): the Boolean of the system is a number.
extern "C" {

const CFAllocatorRef kCFAllocatorDefault = nullptr;
const CFBooleanRef kCFBooleanTrue = static_cast<CFBooleanRef>(objects().makeConstant<BooleanObject>(true));
const CFBooleanRef kCFBooleanFalse = static_cast<CFBooleanRef>(objects().makeConstant<BooleanObject>(false));

CFTypeRef CFRetain(CFTypeRef object) {
  objects().retain(object);
  return object;
}

void CFRelease(CFTypeRef object) { objects().release(object); }

CFTypeID CFGetTypeID(CFTypeRef object) {
  const auto* const used = objects().used(object, "CFGetTypeID");
  return used == nullptr ? 0 : used->type();
}

Boolean CFEqual(CFTypeRef first, CFTypeRef second) {
  const auto* const one = objects().used(first, "CFEqual");
  const auto* const other = objects().used(second, "CFEqual");
  if (one == nullptr || other == nullptr || one->type() != other->type()) return false;
  return one->equals(*other);
}

CFHashCode CFHash(CFTypeRef object) {
  const auto* const used = objects().used(object, "CFHash");
  return used == nullptr ? 0 : used->hash();
}

CFTypeID CFBooleanGetTypeID() { return idOf(ValueType::boolean); }

Boolean CFBooleanGetValue(CFBooleanRef boolean) {
  const auto* const used = objects().used<BooleanObject>(boolean, "CFBooleanGetValue");
  return used != nullptr && used->isOn;
}

CFTypeID CFStringGetTypeID() { return idOf(ValueType::string); }

CFStringRef CFStringCreateWithBytes(CFAllocatorRef, const UInt8* bytes, CFIndex count,
                                    CFStringEncoding encoding, Boolean isExternalRepresentation) {
  std::string_view text = bytesOf(bytes, count);
  if (encoding != kCFStringEncodingUTF8 || !isUtf8(text)) return nullptr;
  if (isExternalRepresentation && text.starts_with(byteOrderMark)) text.remove_prefix(byteOrderMark.size());
  return makeString(text);
}

CFIndex CFStringGetLength(CFStringRef string) {
  const auto* const used = objects().used<StringObject>(string, "CFStringGetLength");
  return used == nullptr ? 0 : static_cast<CFIndex>(used->text.size());
}

CFIndex CFStringGetBytes(CFStringRef string, CFRange range, CFStringEncoding encoding, UInt8 lossByte,
                         Boolean, UInt8* buffer, CFIndex capacity, CFIndex* usedBytes) {
  const auto* const used = objects().used<StringObject>(string, "CFStringGetBytes");
  if (used == nullptr || encoding != kCFStringEncodingUTF8) return 0;
  const auto units =
      std::u16string_view(used->text)
          .substr(static_cast<std::size_t>(range.location), static_cast<std::size_t>(range.length));
  const auto room = buffer == nullptr ? std::string::npos : static_cast<std::size_t>(capacity);
  const auto converted = utf8(units, static_cast<char>(lossByte), room);
  if (buffer != nullptr) std::copy(converted.text.begin(), converted.text.end(), buffer);
  if (usedBytes != nullptr) *usedBytes = static_cast<CFIndex>(converted.text.size());
  return static_cast<CFIndex>(converted.units);
}

CFTypeID CFDataGetTypeID() { return idOf(ValueType::data); }

CFDataRef CFDataCreate(CFAllocatorRef, const UInt8* bytes, CFIndex count) {
  return static_cast<CFDataRef>(objects().make<DataObject>(std::string(bytesOf(bytes, count))));
}

CFIndex CFDataGetLength(CFDataRef data) {
  const auto* const used = objects().used<DataObject>(data, "CFDataGetLength");
  return used == nullptr ? 0 : static_cast<CFIndex>(used->bytes.size());
}

const UInt8* CFDataGetBytePtr(CFDataRef data) {
  const auto* const used = objects().used<DataObject>(data, "CFDataGetBytePtr");
  return used == nullptr ? nullptr : reinterpret_cast<const UInt8*>(used->bytes.data());
}

}  // extern "C"
// NOLINTEND(readability-implicit-bool-conversion)
