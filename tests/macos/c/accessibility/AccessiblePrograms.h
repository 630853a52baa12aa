#pragma once

#include <ApplicationServices/ApplicationServices.h>

#include <chrono>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "platform/simulated/SimulatedAccessibility.h"

namespace tilwin::macos::c {

/// Other programs, as the accessibility functions show them as long as this exists: the tree of a test, and
/// the ways of real programs that a tree of values does not have. They are slow, hang, fail and lie. One at a
/// time.
class AccessiblePrograms {
public:
  using Node = SimulatedAccessibility::Node;
  using Seconds = std::chrono::duration<double>;

  /// What the system waits for an answer unless it is told otherwise.
  static constexpr Seconds defaultTimeout{6};

  /// The tree must outlive this.
  explicit AccessiblePrograms(SimulatedAccessibility& of);
  AccessiblePrograms(const AccessiblePrograms&) = delete;
  AccessiblePrograms& operator=(const AccessiblePrograms&) = delete;
  ~AccessiblePrograms();

  /// The one that exists; null if none does.
  static AccessiblePrograms* current();

  /// From now on the program takes this long for each answer.
  void slowDown(std::int32_t processID, Seconds answer) { answers_[processID] = answer; }
  /// From now on the program does not answer.
  void hang(std::int32_t processID) { slowDown(processID, Seconds{3600}); }
  /// Every reading and writing of the attribute fails like this.
  void fail(Node node, std::string_view attribute, AXError error);
  /// The attribute reads as this object, which is given away to this.
  void lie(Node node, std::string_view attribute, CFTypeRef object);
  /// Called before a program answers for this element.
  std::function<void(Node node)> onQuestion{};

  /// The time that all calls have waited for programs.
  [[nodiscard]] Seconds waited() const { return waited_; }
  void forgetWaiting() { waited_ = {}; }
  /// How often the system has asked the user for permission.
  [[nodiscard]] int promptCount() const { return promptCount_; }

  /// What follows is for the accessibility functions.
  [[nodiscard]] SimulatedAccessibility& tree() { return tree_; }
  /// Waits for the program, but for no longer than this. Returns whether it has answered.
  bool ask(Node node, std::int32_t processID, Seconds timeout);
  [[nodiscard]] AXError failure(Node node, std::string_view attribute) const;
  /// Null if there is none.
  [[nodiscard]] CFTypeRef lieOf(Node node, std::string_view attribute) const;
  void prompt() { ++promptCount_; }
  Seconds timeoutOfAll = defaultTimeout;

private:
  using Attribute = std::pair<Node, std::string>;

  SimulatedAccessibility& tree_;
  std::map<std::int32_t, Seconds> answers_;
  std::map<Attribute, AXError> failures_;
  std::map<Attribute, CFTypeRef> lies_;
  Seconds waited_{};
  int promptCount_ = 0;
};

}  // namespace tilwin::macos::c
