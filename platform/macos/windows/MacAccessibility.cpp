#include "platform/macos/windows/MacAccessibility.h"

#include <ApplicationServices/ApplicationServices.h>

#include "platform/macos/support/CFOwned.h"
#include "platform/macos/support/CFText.h"
#include "platform/macos/windows/AttributeValues.h"

namespace tilwin::macos {

AccessibilityElementRef MacAccessibility::application(std::int32_t processID) {
  limitWaiting();
  return std::make_shared<MacElement>(created(AXUIElementCreateApplication(processID)));
}

AccessibilityElementRef MacAccessibility::element(Point at) {
  limitWaiting();
  const auto everything = created(AXUIElementCreateSystemWide());
  AXUIElementRef found = nullptr;
  const AXError error = AXUIElementCopyElementAtPosition(everything.get(), static_cast<float>(at.x),
                                                         static_cast<float>(at.y), &found);
  if (error != kAXErrorSuccess || found == nullptr) return nullptr;
  return std::make_shared<MacElement>(created(found));
}

AccessibilityValue MacAccessibility::copyAttribute(const AccessibilityElementRef& of, std::string_view name) {
  const AXUIElementRef element = elementOf(of);
  const auto attribute = cfText(name);
  if (element == nullptr || !attribute) return {};
  CFTypeRef value = nullptr;
  if (AXUIElementCopyAttributeValue(element, attribute.get(), &value) != kAXErrorSuccess) return {};
  return attributeValue(created(value).get());
}

bool MacAccessibility::setAttribute(const AccessibilityElementRef& of, std::string_view name,
                                    const AccessibilityValue& value) {
  const AXUIElementRef element = elementOf(of);
  const auto attribute = cfText(name);
  const auto object = attributeObject(value);
  return element != nullptr && attribute && object &&
         AXUIElementSetAttributeValue(element, attribute.get(), object.get()) == kAXErrorSuccess;
}

std::optional<std::int32_t> MacAccessibility::owningProcess(const AccessibilityElementRef& of) {
  const AXUIElementRef element = elementOf(of);
  pid_t processID = 0;
  if (element == nullptr || AXUIElementGetPid(element, &processID) != kAXErrorSuccess) return std::nullopt;
  return processID;
}

std::uint64_t MacAccessibility::hash(const AccessibilityElementRef& of) {
  const AXUIElementRef element = elementOf(of);
  return element == nullptr ? 0 : CFHash(element);
}

/// Set on the element of the whole system, the limit is that of all elements. All come from `application` or
/// `element`, which call this first. Until the user trusts this program it may be refused, so it is tried
/// again.
void MacAccessibility::limitWaiting() {
  if (isWaitingLimited_) return;
  const auto everything = created(AXUIElementCreateSystemWide());
  isWaitingLimited_ = AXUIElementSetMessagingTimeout(everything.get(), longestWait) == kAXErrorSuccess;
}

}  // namespace tilwin::macos
