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

/// A tree of accessibility elements in memory. Whoever plays the other programs makes the elements, gives
/// them attributes and says how they take being written to.
class SimulatedAccessibility final : public Accessibility {
public:
  using Node = std::uint64_t;  ///< names an element to whoever steers the tree; never 0 and never used again

  /// One request to change an attribute.
  struct Write {
    Node node = 0;
    std::string attribute{};
    AccessibilityValue value{};
    bool wasTaken = false;
  };

  /// Without the user's trust every read finds nothing and every write is refused.
  bool isTrusted = true;
  /// Called after each write.
  std::function<void(const Write& write)> onWrite{};

  /// The element that stands for the program; made when there is none yet.
  Node applicationNode(std::int32_t processID);
  /// An element of the program, without attributes.
  Node add(std::int32_t processID);
  /// Nothing can be read from it any longer. Attributes that hold it still do.
  void remove(Node node);
  /// Overwrites the attribute, whatever it held.
  void give(Node node, std::string_view attribute, AccessibilityValue value);
  void take(Node node, std::string_view attribute);
  /// What the attribute holds, as seen without the user's trust.
  [[nodiscard]] AccessibilityValue held(Node node, std::string_view attribute) const;
  /// A value that attributes can hold, even of an element that has been removed. Each one made is another
  /// object; null for what was never an element.
  [[nodiscard]] AccessibilityElementRef reference(Node node) const;
  void setHash(Node node, std::uint64_t hash);
  /// Nobody says any longer which program the element is of.
  void forgetProcess(Node node);
  /// Takes no write of this attribute from now on.
  void refuse(Node node, std::string_view attribute);
  /// Takes no write at all from now on.
  void refuseAll(Node node);
  /// Refuses one write to the element: 1 is the next one, 2 the one after it.
  void refuseOnce(Node node, int which);
  /// The element covers this area, above those that were put there before.
  void cover(const Rect& area, Node node);
  void uncover(Node node);

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
    std::set<int> refusedOnce{};  ///< counted from the element's first write
    int writeCount = 0;
  };

  [[nodiscard]] bool isTaken(Content& by, std::string_view name) const;

  std::unordered_map<Node, Content> contents_;
  std::unordered_map<Node, std::uint64_t> hashes_;
  std::unordered_map<std::int32_t, Node> applications_;
  std::vector<std::pair<Rect, Node>> covered_;
  std::vector<Write> writes_;
  Node lastNode_ = 0;
};

}  // namespace tilwin
