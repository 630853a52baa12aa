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

/// A thing on the screen that another program shows: a window, a button, the program itself. Opaque: only the
/// adapter that made it knows what is inside. It may outlive what it stands for, and then nothing can be read
/// from it. Two of them may stand for the same thing; their hashes tell.
class AccessibilityElement {
public:
  AccessibilityElement(const AccessibilityElement&) = delete;
  AccessibilityElement& operator=(const AccessibilityElement&) = delete;
  virtual ~AccessibilityElement() = default;

protected:
  AccessibilityElement() = default;
};

using AccessibilityElementRef = std::shared_ptr<const AccessibilityElement>;

/// What an attribute holds; `monostate` when it is missing, cannot be read or is of no kind named here. No
/// element in it is null. Points and sizes are in the global desktop space.
using AccessibilityValue = std::variant<std::monostate, AccessibilityElementRef,
                                        std::vector<AccessibilityElementRef>, std::string, bool, Point, Size>;

/// Reads and changes what other programs show, by the attributes of macOS accessibility (AXUIElement.h). For
/// the main thread. Without the user's permission every read finds nothing and every write fails.
class Accessibility {
public:
  Accessibility() = default;
  Accessibility(const Accessibility&) = delete;
  Accessibility& operator=(const Accessibility&) = delete;
  virtual ~Accessibility() = default;

  /// The element that stands for a whole program. Never null; where there is no such program it is one that
  /// nothing can be read from.
  [[nodiscard]] virtual AccessibilityElementRef application(std::int32_t processID) = 0;
  /// The innermost element under a point, whatever program shows it. Null when there is none.
  [[nodiscard]] virtual AccessibilityElementRef element(Point at) = 0;
  [[nodiscard]] virtual AccessibilityValue copyAttribute(const AccessibilityElementRef& of,
                                                         std::string_view name) = 0;
  /// True when the program took the value.
  virtual bool setAttribute(const AccessibilityElementRef& of, std::string_view name,
                            const AccessibilityValue& value) = 0;
  [[nodiscard]] virtual std::optional<std::int32_t> owningProcess(const AccessibilityElementRef& of) = 0;
  /// The same for all elements that stand for the same thing, for as long as it is there (CFHash).
  [[nodiscard]] virtual std::uint64_t hash(const AccessibilityElementRef& of) = 0;
};

}  // namespace tilwin

/// The names of macOS accessibility that the program speaks (AXAttributeConstants.h, AXRoleConstants.h).

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
