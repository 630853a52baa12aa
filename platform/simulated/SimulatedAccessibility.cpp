#include "platform/simulated/SimulatedAccessibility.h"

#include <algorithm>

namespace tilwin {
namespace {

class SimulatedElement final : public AccessibilityElement {
public:
  explicit SimulatedElement(SimulatedAccessibility::Node of) : node(of) {}

  const SimulatedAccessibility::Node node;
};

}  // namespace

SimulatedAccessibility::Node SimulatedAccessibility::node(const AccessibilityElementRef& of) {
  const auto* simulated = dynamic_cast<const SimulatedElement*>(of.get());
  return simulated == nullptr ? 0 : simulated->node;
}

SimulatedAccessibility::Node SimulatedAccessibility::applicationNode(std::int32_t processID) {
  const auto found = applications_.find(processID);
  if (found != applications_.end()) return found->second;
  return applications_[processID] = add(processID);
}

SimulatedAccessibility::Node SimulatedAccessibility::add(std::int32_t processID) {
  contents_[++lastNode_].processID = processID;
  return lastNode_;
}

void SimulatedAccessibility::remove(Node node) {
  contents_.erase(node);
  uncover(node);
}

void SimulatedAccessibility::give(Node node, std::string_view attribute, AccessibilityValue value) {
  contents_.at(node).attributes.insert_or_assign(std::string(attribute), std::move(value));
}

void SimulatedAccessibility::take(Node node, std::string_view attribute) {
  auto& attributes = contents_.at(node).attributes;
  const auto found = attributes.find(attribute);
  if (found != attributes.end()) attributes.erase(found);
}

AccessibilityValue SimulatedAccessibility::held(Node node, std::string_view attribute) const {
  const auto content = contents_.find(node);
  if (content == contents_.end()) return {};
  const auto found = content->second.attributes.find(attribute);
  return found == content->second.attributes.end() ? AccessibilityValue() : found->second;
}

AccessibilityElementRef SimulatedAccessibility::reference(Node node) const {
  return node == 0 || node > lastNode_ ? nullptr : std::make_shared<SimulatedElement>(node);
}

/// What an element makes of a value written to it.
AccessibilityValue SimulatedAccessibility::accepted(const Content& by, const AccessibilityValue& value) {
  const auto* size = std::get_if<Size>(&value);
  if (size == nullptr) return value;
  return Size{std::max(size->width, by.least.width), std::max(size->height, by.least.height)};
}

void SimulatedAccessibility::setHash(Node node, std::uint64_t hash) { hashes_[node] = hash; }

void SimulatedAccessibility::forgetProcess(Node node) { contents_.at(node).processID.reset(); }

void SimulatedAccessibility::refuse(Node node, std::string_view attribute) {
  contents_.at(node).refused.emplace(attribute);
}

void SimulatedAccessibility::refuseAll(Node node) { contents_.at(node).refusesAll = true; }

void SimulatedAccessibility::refuseOnce(Node node, int which) {
  Content& content = contents_.at(node);
  content.refusedOnce.insert(content.writeCount + which);
}

void SimulatedAccessibility::cover(const Rect& area, Node node) { covered_.emplace_back(area, node); }

void SimulatedAccessibility::uncover(Node node) {
  std::erase_if(covered_, [&](const auto& covered) { return covered.second == node; });
}

AccessibilityElementRef SimulatedAccessibility::application(std::int32_t processID) {
  const auto found = applications_.find(processID);
  return std::make_shared<SimulatedElement>(found == applications_.end() ? 0 : found->second);
}

AccessibilityElementRef SimulatedAccessibility::element(Point at) {
  if (!isTrusted) return nullptr;
  const auto found = std::find_if(covered_.rbegin(), covered_.rend(),
                                  [&](const auto& covered) { return covered.first.contains(at.x, at.y); });
  return found == covered_.rend() ? nullptr : reference(found->second);
}

AccessibilityValue SimulatedAccessibility::copyAttribute(const AccessibilityElementRef& of,
                                                         std::string_view name) {
  return isTrusted ? held(node(of), name) : AccessibilityValue();
}

bool SimulatedAccessibility::setAttribute(const AccessibilityElementRef& of, std::string_view name,
                                          const AccessibilityValue& value) {
  const Node node = SimulatedAccessibility::node(of);
  const auto content = contents_.find(node);
  const bool wasTaken = content != contents_.end() && isTaken(content->second, name);
  if (wasTaken) give(node, name, accepted(content->second, value));
  writes_.push_back({node, std::string(name), value, wasTaken});
  if (onWrite) onWrite(Write(writes_.back()));
  return wasTaken;
}

std::optional<std::int32_t> SimulatedAccessibility::owningProcess(const AccessibilityElementRef& of) {
  const auto content = contents_.find(node(of));
  return content == contents_.end() ? std::nullopt : content->second.processID;
}

std::uint64_t SimulatedAccessibility::hash(const AccessibilityElementRef& of) {
  const Node node = SimulatedAccessibility::node(of);
  const auto chosen = hashes_.find(node);
  return chosen == hashes_.end() ? node : chosen->second;
}

/// Accepts a write only if the element has the attribute. Counts every write, refused ones too.
bool SimulatedAccessibility::isTaken(Content& by, std::string_view name) const {
  ++by.writeCount;
  return isTrusted && by.attributes.contains(name) && !by.refusesAll && !by.refused.contains(name) &&
         !by.refusedOnce.contains(by.writeCount);
}

}  // namespace tilwin
