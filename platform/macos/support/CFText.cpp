#include "platform/macos/support/CFText.h"

namespace tilwin::macos {
namespace {

constexpr Boolean withoutByteOrderMark = 0;

}  // namespace

CFOwned<CFStringRef> cfText(std::string_view utf8) {
  return created(CFStringCreateWithBytes(kCFAllocatorDefault, reinterpret_cast<const UInt8*>(utf8.data()),
                                         static_cast<CFIndex>(utf8.size()), kCFStringEncodingUTF8,
                                         withoutByteOrderMark));
}

std::string utf8(CFStringRef string) {
  const auto convert = [string, all = CFRange{0, CFStringGetLength(string)}](UInt8* to, CFIndex capacity) {
    CFIndex size = 0;
    CFStringGetBytes(string, all, kCFStringEncodingUTF8, '?', withoutByteOrderMark, to, capacity, &size);
    return size;
  };
  const CFIndex size = convert(nullptr, 0);
  std::string text(static_cast<std::size_t>(size), '\0');
  convert(reinterpret_cast<UInt8*>(text.data()), size);
  return text;
}

}  // namespace tilwin::macos
