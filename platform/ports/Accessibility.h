#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "core/geometry/Rect.h"

namespace tilwin {

/// A user interface element of another program: a window, a button, or the program itself. Opaque: only the
/// adapter that created it knows its content. It may outlive the thing it refers to; every read then fails.
/// Two objects may refer to the same thing; compare their hashes to find out.
class AccessibilityElement {
public:
  AccessibilityElement(const AccessibilityElement&) = delete;
  AccessibilityElement& operator=(const AccessibilityElement&) = delete;
  virtual ~AccessibilityElement() = default;

protected:
  AccessibilityElement() = default;
};

using AccessibilityElementRef = std::shared_ptr<const AccessibilityElement>;

/// The value of an attribute; `monostate` if it is missing, cannot be read, or has a type not listed here.
/// Elements in it are never null. Points and sizes are in points, in global desktop coordinates.
using AccessibilityValue = std::variant<std::monostate, AccessibilityElementRef,
                                        std::vector<AccessibilityElementRef>, std::string, bool, Point, Size>;

/// Reads and changes the user interface of other programs through accessibility attributes. Call it from the
/// main thread only. Without the user's permission every read returns nothing and every write fails.
/// Source: the accessibility API of macOS (AXUIElement.h).
class Accessibility {
public:
  Accessibility() = default;
  Accessibility(const Accessibility&) = delete;
  Accessibility& operator=(const Accessibility&) = delete;
  virtual ~Accessibility() = default;

  /// The element of a whole program. Never null; if no such process exists, every read from the element
  /// fails.
  [[nodiscard]] virtual AccessibilityElementRef application(std::int32_t processID) = 0;
  /// The innermost element under a point, of any program; null if there is none.
  [[nodiscard]] virtual AccessibilityElementRef element(Point at) = 0;
  [[nodiscard]] virtual AccessibilityValue copyAttribute(const AccessibilityElementRef& of,
                                                         std::string_view name) = 0;
  /// Returns whether the program accepted the value.
  virtual bool setAttribute(const AccessibilityElementRef& of, std::string_view name,
                            const AccessibilityValue& value) = 0;
  /// The id of the process that the element belongs to; nothing if it is unknown.
  [[nodiscard]] virtual std::optional<std::int32_t> owningProcess(const AccessibilityElementRef& of) = 0;
  /// The same value for all elements that refer to the same thing, as long as that thing exists (CFHash).
  [[nodiscard]] virtual std::uint64_t hash(const AccessibilityElementRef& of) = 0;
};

}  // namespace tilwin

/// The accessibility attributes and roles that the program uses, by their macOS names. Source:
/// AXAttributeConstants.h, AXRoleConstants.h.

namespace tilwin::accessibility {

inline constexpr std::string_view enhancedUserInterface = "AXEnhancedUserInterface";
inline constexpr std::string_view focusedWindow = "AXFocusedWindow";
inline constexpr std::string_view mainWindow = "AXMainWindow";
inline constexpr std::string_view minimized = "AXMinimized";
inline constexpr std::string_view parent = "AXParent";
inline constexpr std::string_view position = "AXPosition";
inline constexpr std::string_view role = "AXRole";
inline constexpr std::string_view size = "AXSize";
inline constexpr std::string_view subrole = "AXSubrole";
inline constexpr std::string_view title = "AXTitle";
inline constexpr std::string_view windows = "AXWindows";

inline constexpr std::string_view windowRole = "AXWindow";
inline constexpr std::string_view standardWindowSubrole = "AXStandardWindow";

}  // namespace tilwin::accessibility
