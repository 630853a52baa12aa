#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "core/geometry/Rect.h"
#include "platform/ports/Accessibility.h"

namespace tilwin {

/// A tree of accessibility elements in memory. A test plays the other programs: it creates elements, sets
/// their attributes and decides which writes they accept. Functions that take a node throw
/// `std::out_of_range` if they need an element that does not exist.
class SimulatedAccessibility final : public Accessibility {
public:
  using Node = std::uint64_t;  ///< the id by which a test refers to an element; never 0 and never reused

  /// One request to change an attribute.
  struct Write {
    Node node = 0;
    std::string attribute{};
    AccessibilityValue value{};
    bool wasTaken = false;
  };

  /// Whether the user trusts this program. If not, every read returns nothing and every write is refused.
  bool isTrusted = true;
  /// Called after each write.
  std::function<void(const Write& write)> onWrite{};

  /// The element of the program; created if it does not exist.
  Node applicationNode(std::int32_t processID);
  /// Adds an element of the program, without attributes.
  Node add(std::int32_t processID);
  /// Removes the element: every read from it fails from now on. Attributes that refer to it stay unchanged.
  void remove(Node node);
  /// Sets an attribute.
  void give(Node node, std::string_view attribute, AccessibilityValue value);
  /// Removes an attribute.
  void take(Node node, std::string_view attribute);
  /// The value of an attribute, even without the user's trust.
  [[nodiscard]] AccessibilityValue held(Node node, std::string_view attribute) const;
  /// A reference to the element, for use in attributes. Works for removed elements too; null if the element
  /// never existed. Each call returns another object.
  [[nodiscard]] AccessibilityElementRef reference(Node node) const;
  /// The id of the element that a reference refers to, removed or not; 0 if it is not from a tree or its
  /// program was not running.
  [[nodiscard]] static Node node(const AccessibilityElementRef& of);
  /// Whether the element was added and not removed.
  [[nodiscard]] bool has(Node node) const { return contents_.contains(node); }
  /// Sets what `hash` returns for the element; by default it is the node.
  void setHash(Node node, std::uint64_t hash);
  /// Makes the process of the element unknown.
  void forgetProcess(Node node);
  /// Makes the element, a window, at least this large from now on: a smaller size written to it becomes this
  /// one.
  void setLeastSize(Node node, Size size) { contents_.at(node).least = size; }
  /// Refuses all writes of this attribute from now on.
  void refuse(Node node, std::string_view attribute);
  /// Refuses all writes to the element from now on.
  void refuseAll(Node node);
  /// Refuses one write to the element: 1 is the next one, 2 the one after it.
  void refuseOnce(Node node, int which);
  /// Places the element on this area, in points, above all that were placed before.
  void cover(const Rect& area, Node node);
  /// Removes the element from all its areas.
  void uncover(Node node);

  /// All writes since the last `forgetWrites`, refused ones too.
  [[nodiscard]] const std::vector<Write>& writes() const { return writes_; }
  void forgetWrites() { writes_.clear(); }

  AccessibilityElementRef application(std::int32_t processID) override;
  AccessibilityElementRef element(Point at) override;
  AccessibilityValue copyAttribute(const AccessibilityElementRef& of, std::string_view name) override;
  bool setAttribute(const AccessibilityElementRef& of, std::string_view name,
                    const AccessibilityValue& value) override;
  std::optional<std::int32_t> owningProcess(const AccessibilityElementRef& of) override;
  std::uint64_t hash(const AccessibilityElementRef& of) override;

private:
  struct Content {
    std::optional<std::int32_t> processID{};
    std::map<std::string, AccessibilityValue, std::less<>> attributes{};
    std::set<std::string, std::less<>> refused{};
    bool refusesAll = false;
    std::set<int> refusedOnce{};  ///< numbers of writes, counted from the element's first
    int writeCount = 0;
    Size least{};
  };

  [[nodiscard]] bool isTaken(Content& by, std::string_view name) const;
  [[nodiscard]] static AccessibilityValue accepted(const Content& by, const AccessibilityValue& value);

  std::unordered_map<Node, Content> contents_;
  std::unordered_map<Node, std::uint64_t> hashes_;
  std::unordered_map<std::int32_t, Node> applications_;
  std::vector<std::pair<Rect, Node>> covered_;
  std::vector<Write> writes_;
  Node lastNode_ = 0;
};

}  // namespace tilwin
