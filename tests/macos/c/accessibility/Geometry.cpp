#include <ApplicationServices/ApplicationServices.h>

#include <array>
#include <cstddef>
#include <variant>

#include "tests/macos/c/accessibility/AccessibilityObjects.h"

namespace {

using namespace tilwin::macos::c;
using GeometryValue = GeometryObject::Value;

template <typename Type>
GeometryValue copied(const void* from) {
  return *static_cast<const Type*>(from);
}

/// By AXValueType.
constexpr std::array<GeometryValue (*)(const void*), 6> makers{
    nullptr, &copied<CGPoint>, &copied<CGSize>, &copied<RectOfDoubles>, &copied<CFRange>, &copied<AXError>};

struct GeometryWriter {
  void operator()(std::monostate) const {}
  template <typename Type>
  void operator()(const Type& value) const {
    *static_cast<Type*>(to) = value;
  }

  void* to;
};

}  // namespace

// NOLINTBEGIN(readability-implicit-bool-conversion): the Boolean of the system is a number.
extern "C" {

CFTypeID AXValueGetTypeID() { return geometryType; }

AXValueRef AXValueCreate(AXValueType type, const void* value) {
  const auto maker = makers.at(static_cast<std::size_t>(type));
  if (maker == nullptr || value == nullptr) return nullptr;
  return static_cast<AXValueRef>(objects().make<GeometryObject>(maker(value)));
}

Boolean AXValueGetValue(AXValueRef value, AXValueType type, void* to) {
  const auto* const used = objects().used<GeometryObject>(value, "AXValueGetValue");
  if (used == nullptr || used->kind() != type) return false;
  std::visit(GeometryWriter{to}, used->value);
  return true;
}

}  // extern "C"
// NOLINTEND(readability-implicit-bool-conversion)
