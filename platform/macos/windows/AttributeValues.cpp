#include "platform/macos/windows/AttributeValues.h"

#include <array>
#include <cmath>
#include <string>
#include <variant>
#include <vector>

#include "platform/macos/support/CFText.h"

namespace tilwin::macos {
namespace {

AccessibilityElementRef wrapped(AXUIElementRef element) {
  return std::make_shared<MacElement>(CFOwned<AXUIElementRef>::retained(element));
}

AccessibilityValue elementValue(CFTypeRef of) { return wrapped(static_cast<AXUIElementRef>(of)); }

AccessibilityValue listValue(CFTypeRef of) {
  const auto array = static_cast<CFArrayRef>(of);
  std::vector<AccessibilityElementRef> elements;
  for (CFIndex index = 0; index < CFArrayGetCount(array); ++index) {
    const CFTypeRef entry = CFArrayGetValueAtIndex(array, index);
    if (const auto element = asType<AXUIElementRef>(entry, AXUIElementGetTypeID()))
      elements.push_back(wrapped(element));
  }
  return elements;
}

AccessibilityValue textValue(CFTypeRef of) { return utf8(static_cast<CFStringRef>(of)); }

AccessibilityValue flagValue(CFTypeRef of) { return CFBooleanGetValue(static_cast<CFBooleanRef>(of)) != 0; }

AccessibilityValue geometryValue(CFTypeRef of) {
  const auto value = static_cast<AXValueRef>(of);
  CGPoint point{};
  if (AXValueGetValue(value, kAXValueTypeCGPoint, &point) != 0 && std::isfinite(point.x) &&
      std::isfinite(point.y)) {
    return Point{point.x, point.y};
  }
  CGSize size{};
  if (AXValueGetValue(value, kAXValueTypeCGSize, &size) != 0 && std::isfinite(size.width) &&
      std::isfinite(size.height)) {
    return Size{size.width, size.height};
  }
  return {};
}

struct Reader {
  CFTypeID (*type)();
  AccessibilityValue (*read)(CFTypeRef of);
};

constexpr std::array readers{
    Reader{&AXUIElementGetTypeID, &elementValue}, Reader{&CFArrayGetTypeID, &listValue},
    Reader{&CFStringGetTypeID, &textValue},       Reader{&CFBooleanGetTypeID, &flagValue},
    Reader{&AXValueGetTypeID, &geometryValue},
};

/// Makes the object of each type of value.
struct Writer {
  CFOwned<CFTypeRef> operator()(std::monostate) const { return {}; }
  CFOwned<CFTypeRef> operator()(const AccessibilityElementRef& of) const {
    return CFOwned<CFTypeRef>::retained(elementOf(of));
  }
  CFOwned<CFTypeRef> operator()(const std::vector<AccessibilityElementRef>& of) const {
    std::vector<CFTypeRef> elements;
    for (const auto& each : of) {
      elements.push_back(elementOf(each));
      if (elements.back() == nullptr) return {};
    }
    return created<CFTypeRef>(CFArrayCreate(kCFAllocatorDefault, elements.data(),
                                            static_cast<CFIndex>(elements.size()), &kCFTypeArrayCallBacks));
  }
  CFOwned<CFTypeRef> operator()(const std::string& of) const {
    return CFOwned<CFTypeRef>::retained(cfText(of).get());
  }
  CFOwned<CFTypeRef> operator()(bool of) const {
    return CFOwned<CFTypeRef>::retained(of ? kCFBooleanTrue : kCFBooleanFalse);
  }
  CFOwned<CFTypeRef> operator()(Point of) const {
    const CGPoint point{of.x, of.y};
    return created<CFTypeRef>(AXValueCreate(kAXValueTypeCGPoint, &point));
  }
  CFOwned<CFTypeRef> operator()(Size of) const {
    const CGSize size{of.width, of.height};
    return created<CFTypeRef>(AXValueCreate(kAXValueTypeCGSize, &size));
  }
};

}  // namespace

AXUIElementRef elementOf(const AccessibilityElementRef& of) {
  const auto* const element = dynamic_cast<const MacElement*>(of.get());
  return element == nullptr ? nullptr : element->element.get();
}

AccessibilityValue attributeValue(CFTypeRef of) {
  if (of == nullptr) return {};
  for (const Reader& reader : readers) {
    if (CFGetTypeID(of) == reader.type()) return reader.read(of);
  }
  return {};
}

CFOwned<CFTypeRef> attributeObject(const AccessibilityValue& of) { return std::visit(Writer{}, of); }

}  // namespace tilwin::macos
