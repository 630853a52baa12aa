#include "tests/macos/c/accessibility/AccessiblePrograms.h"

#include <algorithm>

#include "core/support/Fatal.h"

namespace tilwin::macos::c {
namespace {

AccessiblePrograms* programs = nullptr;

}  // namespace

AccessiblePrograms::AccessiblePrograms(SimulatedAccessibility& of) : tree_(of) {
  if (programs != nullptr) fatal("The programs of two tests at once.");
  programs = this;
}

AccessiblePrograms::~AccessiblePrograms() {
  for (const auto& [attribute, object] : lies_) CFRelease(object);
  programs = nullptr;
}

AccessiblePrograms* AccessiblePrograms::current() { return programs; }

void AccessiblePrograms::fail(Node node, std::string_view attribute, AXError error) {
  failures_[{node, std::string(attribute)}] = error;
}

void AccessiblePrograms::lie(Node node, std::string_view attribute, CFTypeRef object) {
  CFTypeRef& lie = lies_[{node, std::string(attribute)}];
  if (lie != nullptr) CFRelease(lie);
  lie = object;
}

bool AccessiblePrograms::ask(Node node, std::int32_t processID, Seconds timeout) {
  if (onQuestion) onQuestion(node);
  const auto slow = answers_.find(processID);
  const Seconds answer = slow == answers_.end() ? Seconds{0} : slow->second;
  waited_ += std::min(answer, timeout);
  return answer <= timeout;
}

AXError AccessiblePrograms::failure(Node node, std::string_view attribute) const {
  const auto found = failures_.find({node, std::string(attribute)});
  return found == failures_.end() ? kAXErrorSuccess : found->second;
}

CFTypeRef AccessiblePrograms::lieOf(Node node, std::string_view attribute) const {
  const auto found = lies_.find({node, std::string(attribute)});
  return found == lies_.end() ? nullptr : found->second;
}

}  // namespace tilwin::macos::c
