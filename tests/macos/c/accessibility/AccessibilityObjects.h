#pragma once

#include <ApplicationServices/ApplicationServices.h>

#include <variant>

#include "tests/macos/c/accessibility/AccessiblePrograms.h"
#include "tests/macos/c/objects/CountedObjects.h"

/// The objects of the accessibility functions, and how the values of a tree become objects and back.

namespace tilwin::macos::c {

inline constexpr CFTypeID elementType = 300;
inline constexpr CFTypeID geometryType = 301;

/// An element as a program holds it: two objects may stand for the same one. Both are equal then and have one
/// hash.
class ElementObject final : public CountedObject {
public:
  /// The element of the system, a program, or a node of the tree.
  ElementObject() = default;
  explicit ElementObject(std::int32_t ofProcess) : processID(ofProcess), isApplication(true) {}
  explicit ElementObject(AccessibilityElementRef of);

  [[nodiscard]] CFTypeID type() const override { return elementType; }
  [[nodiscard]] std::string description() const override;
  [[nodiscard]] bool equals(const CountedObject& other) const override;
  [[nodiscard]] std::size_t hash() const override;
  void end() override { reference_.reset(); }

  [[nodiscard]] bool isSystemWide() const { return !isApplication && !reference_; }
  /// What the tree has for it now; null for the element of the system.
  [[nodiscard]] AccessibilityElementRef reference() const;
  [[nodiscard]] AccessiblePrograms::Node node() const { return SimulatedAccessibility::node(reference()); }

  std::int32_t processID = 0;
  bool isApplication = false;
  AccessiblePrograms::Seconds timeout{};  ///< of this object alone; 0 for that of all

private:
  AccessibilityElementRef reference_;
};

struct RectOfDoubles {
  CGPoint origin;
  CGSize size;
};

/// A point, a size, or what else there is.
class GeometryObject final : public CountedObject {
public:
  using Value = std::variant<std::monostate, CGPoint, CGSize, RectOfDoubles, CFRange, AXError>;
  explicit GeometryObject(Value of) : value(of) {}

  [[nodiscard]] CFTypeID type() const override { return geometryType; }
  [[nodiscard]] std::string description() const override;
  [[nodiscard]] AXValueType kind() const { return static_cast<AXValueType>(value.index()); }

  const Value value;
};

/// An object that the caller owns; null for `monostate`.
[[nodiscard]] CFTypeRef makeObject(const AccessibilityValue& of);
/// `monostate` for what no attribute of a tree can be.
[[nodiscard]] AccessibilityValue valueOf(CFTypeRef object);
[[nodiscard]] AXUIElementRef makeElement(const AccessibilityElementRef& of);

}  // namespace tilwin::macos::c
