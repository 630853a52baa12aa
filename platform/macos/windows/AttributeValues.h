#pragma once

#include <ApplicationServices/ApplicationServices.h>

#include <utility>

#include "platform/macos/support/CFOwned.h"
#include "platform/ports/Accessibility.h"

/// Between the values of accessibility attributes as the system and as the program has them. Other programs
/// supply the former, so nothing is taken for granted about them.

namespace tilwin::macos {

/// An element of another program, kept as long as this lives.
class MacElement final : public AccessibilityElement {
public:
  explicit MacElement(CFOwned<AXUIElementRef> of) : element(std::move(of)) {}

  const CFOwned<AXUIElementRef> element;  ///< never empty
};

/// Null for null and for elements of another adapter. Valid as long as `of`.
[[nodiscard]] AXUIElementRef elementOf(const AccessibilityElementRef& of);

/// `monostate` for null, for types that the program does not know, and for points and sizes that are not
/// finite. Of a list, what is no element is left out. The value keeps its owner.
[[nodiscard]] AccessibilityValue attributeValue(CFTypeRef of);

/// Empty for `monostate`, for text that is not UTF-8 and for elements of another adapter.
[[nodiscard]] CFOwned<CFTypeRef> attributeObject(const AccessibilityValue& of);

}  // namespace tilwin::macos
