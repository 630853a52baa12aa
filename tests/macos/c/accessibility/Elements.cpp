#include <ApplicationServices/ApplicationServices.h>

#include "tests/macos/c/accessibility/AccessibilityObjects.h"
#include "tests/macos/c/accessibility/AccessiblePrograms.h"
#include "tests/macos/c/objects/Values.h"

namespace {

using namespace tilwin::macos::c;

/// Asks the program of the element. What it would answer comes after that.
AXError ask(const ElementObject* element) {
  auto* const programs = AccessiblePrograms::current();
  if (element == nullptr) return kAXErrorIllegalArgument;
  if (programs == nullptr || !programs->tree().isTrusted) return kAXErrorAPIDisabled;
  if (element->isSystemWide()) return kAXErrorSuccess;
  const auto node = element->node();
  const auto timeout = element->timeout.count() > 0 ? element->timeout : programs->timeoutOfAll;
  if (!programs->ask(node, element->processID, timeout)) return kAXErrorCannotComplete;
  if (programs->tree().has(node)) return kAXErrorSuccess;
  return element->isApplication ? kAXErrorCannotComplete : kAXErrorInvalidUIElement;
}

/// Null if there is none.
CFTypeRef makeAnswer(const ElementObject& element, const std::string& attribute) {
  auto& programs = *AccessiblePrograms::current();
  if (const CFTypeRef lie = programs.lieOf(element.node(), attribute)) return CFRetain(lie);
  return makeObject(programs.tree().copyAttribute(element.reference(), attribute));
}

}  // namespace

extern "C" {

CFTypeID AXUIElementGetTypeID() { return elementType; }

AXUIElementRef AXUIElementCreateApplication(pid_t processID) {
  return static_cast<AXUIElementRef>(objects().make<ElementObject>(std::int32_t{processID}));
}

AXUIElementRef AXUIElementCreateSystemWide() {
  return static_cast<AXUIElementRef>(objects().make<ElementObject>());
}

AXError AXUIElementCopyAttributeValue(AXUIElementRef element, CFStringRef attribute, CFTypeRef* value) {
  const auto* const asked = objects().used<ElementObject>(element, "AXUIElementCopyAttributeValue");
  const std::string name = utf8Of(attribute, "AXUIElementCopyAttributeValue");
  if (value == nullptr) return kAXErrorIllegalArgument;
  if (const AXError error = ask(asked); error != kAXErrorSuccess) return error;
  const AXError failure = AccessiblePrograms::current()->failure(asked->node(), name);
  if (failure != kAXErrorSuccess) return failure;
  const CFTypeRef answer = makeAnswer(*asked, name);
  if (answer == nullptr) return kAXErrorAttributeUnsupported;
  *value = answer;
  return kAXErrorSuccess;
}

AXError AXUIElementSetAttributeValue(AXUIElementRef element, CFStringRef attribute, CFTypeRef value) {
  const auto* const asked = objects().used<ElementObject>(element, "AXUIElementSetAttributeValue");
  const std::string name = utf8Of(attribute, "AXUIElementSetAttributeValue");
  const auto written = valueOf(value);
  const AXError error = ask(asked);
  if (error != kAXErrorSuccess && error != kAXErrorInvalidUIElement) return error;
  auto& programs = *AccessiblePrograms::current();
  const AXError failure = programs.failure(asked->node(), name);
  if (failure != kAXErrorSuccess) return failure;
  // The tree keeps a list of what is asked of elements that are gone, too.
  const bool wasTaken = programs.tree().setAttribute(asked->reference(), name, written);
  if (error != kAXErrorSuccess) return error;
  return wasTaken ? kAXErrorSuccess : kAXErrorFailure;
}

AXError AXUIElementCopyElementAtPosition(AXUIElementRef application, float x, float y,
                                         AXUIElementRef* element) {
  const auto* const asked = objects().used<ElementObject>(application, "AXUIElementCopyElementAtPosition");
  auto* const programs = AccessiblePrograms::current();
  if (asked == nullptr || element == nullptr) return kAXErrorIllegalArgument;
  if (programs == nullptr || !programs->tree().isTrusted) return kAXErrorAPIDisabled;
  const auto found = programs->tree().element({x, y});
  const auto processID = programs->tree().owningProcess(found).value_or(0);
  if (!found || (!asked->isSystemWide() && asked->processID != processID)) return kAXErrorNoValue;
  const auto node = tilwin::SimulatedAccessibility::node(found);
  if (!programs->ask(node, processID, programs->timeoutOfAll)) return kAXErrorCannotComplete;
  *element = makeElement(found);
  return kAXErrorSuccess;
}

/// The reference itself tells the process, so nobody is asked, and it works for elements that are gone.
AXError AXUIElementGetPid(AXUIElementRef element, pid_t* processID) {
  const auto* const asked = objects().used<ElementObject>(element, "AXUIElementGetPid");
  auto* const programs = AccessiblePrograms::current();
  if (asked == nullptr || processID == nullptr || asked->isSystemWide()) return kAXErrorIllegalArgument;
  const bool isUnknown = programs != nullptr && programs->tree().has(asked->node()) &&
                         !programs->tree().owningProcess(asked->reference());
  if (isUnknown) return kAXErrorFailure;
  *processID = asked->processID;
  return kAXErrorSuccess;
}

/// Least favourably, it is refused like the rest without permission.
AXError AXUIElementSetMessagingTimeout(AXUIElementRef element, float seconds) {
  auto* const changed = objects().used<ElementObject>(element, "AXUIElementSetMessagingTimeout");
  auto* const programs = AccessiblePrograms::current();
  if (changed == nullptr || seconds < 0) return kAXErrorIllegalArgument;
  if (programs == nullptr || !programs->tree().isTrusted) return kAXErrorAPIDisabled;
  const AccessiblePrograms::Seconds wanted{seconds};
  if (!changed->isSystemWide()) {
    changed->timeout = wanted;
  } else {
    programs->timeoutOfAll = seconds > 0 ? wanted : AccessiblePrograms::defaultTimeout;
  }
  return kAXErrorSuccess;
}

}  // extern "C"
