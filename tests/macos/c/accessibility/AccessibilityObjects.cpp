#include "tests/macos/c/accessibility/AccessibilityObjects.h"

#include "tests/macos/c/objects/Utf16.h"
#include "tests/macos/c/objects/Values.h"

namespace tilwin::macos::c {
namespace {

struct ObjectMaker {
  CFTypeRef operator()(std::monostate) const { return nullptr; }
  CFTypeRef operator()(const AccessibilityElementRef& of) const { return makeElement(of); }
  CFTypeRef operator()(const std::vector<AccessibilityElementRef>& of) const {
    std::vector<CFTypeRef> elements;
    elements.reserve(of.size());
    for (const auto& each : of) elements.push_back(makeElement(each));
    const CFTypeRef array = objects().make<ArrayObject>(elements, true);
    for (const CFTypeRef element : elements) CFRelease(element);
    return array;
  }
  CFTypeRef operator()(const std::string& of) const { return makeString(of); }
  CFTypeRef operator()(bool of) const { return of ? kCFBooleanTrue : kCFBooleanFalse; }
  CFTypeRef operator()(Point of) const {
    return objects().make<GeometryObject>(GeometryObject::Value(CGPoint{of.x, of.y}));
  }
  CFTypeRef operator()(Size of) const {
    return objects().make<GeometryObject>(GeometryObject::Value(CGSize{of.width, of.height}));
  }
};

AccessibilityValue valueOfGeometry(const GeometryObject& object) {
  if (const auto* point = std::get_if<CGPoint>(&object.value)) return Point{point->x, point->y};
  if (const auto* size = std::get_if<CGSize>(&object.value)) return Size{size->width, size->height};
  return {};
}

AccessibilityValue valueOfArray(const ArrayObject& array) {
  std::vector<AccessibilityElementRef> elements;
  for (const CFTypeRef entry : array.entries) {
    const auto* const element = objects().used<ElementObject>(entry, "AXUIElementSetAttributeValue");
    if (element == nullptr) return {};
    elements.push_back(element->reference());
  }
  return elements;
}

}  // namespace

ElementObject::ElementObject(AccessibilityElementRef of) : reference_(std::move(of)) {
  auto* const programs = AccessiblePrograms::current();
  if (programs != nullptr) processID = programs->tree().owningProcess(reference_).value_or(0);
}

std::string ElementObject::description() const {
  if (isSystemWide()) return "AXUIElement of the system";
  return "AXUIElement of process " + std::to_string(processID);
}

bool ElementObject::equals(const CountedObject& other) const {
  const auto& element = dynamic_cast<const ElementObject&>(other);
  if (isSystemWide() || element.isSystemWide()) return isSystemWide() && element.isSystemWide();
  return node() == element.node() && (node() != 0 || processID == element.processID);
}

std::size_t ElementObject::hash() const {
  auto* const programs = AccessiblePrograms::current();
  if (programs == nullptr || isSystemWide()) return 0;
  return node() == 0 ? static_cast<std::size_t>(processID) : programs->tree().hash(reference());
}

AccessibilityElementRef ElementObject::reference() const {
  auto* const programs = AccessiblePrograms::current();
  return isApplication && programs != nullptr ? programs->tree().application(processID) : reference_;
}

std::string GeometryObject::description() const { return "AXValue of type " + std::to_string(value.index()); }

CFTypeRef makeObject(const AccessibilityValue& of) { return std::visit(ObjectMaker{}, of); }

AccessibilityValue valueOf(CFTypeRef object) {
  auto* const used = objects().used(object, "AXUIElementSetAttributeValue");
  if (const auto* element = dynamic_cast<ElementObject*>(used)) return element->reference();
  if (const auto* array = dynamic_cast<ArrayObject*>(used)) return valueOfArray(*array);
  if (const auto* string = dynamic_cast<StringObject*>(used)) return utf8(string->text).text;
  if (const auto* flag = dynamic_cast<BooleanObject*>(used)) return flag->isOn;
  if (const auto* geometry = dynamic_cast<GeometryObject*>(used)) return valueOfGeometry(*geometry);
  return {};
}

AXUIElementRef makeElement(const AccessibilityElementRef& of) {
  return static_cast<AXUIElementRef>(objects().make<ElementObject>(of));
}

}  // namespace tilwin::macos::c
