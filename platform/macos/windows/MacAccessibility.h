#pragma once

#include "platform/ports/Accessibility.h"

namespace tilwin::macos {

/// The user interface of other programs, through the accessibility functions of Application Services.
///
/// Each call may wait for the other program, so all of this process wait for at most `longestWait`. Programs
/// answer within milliseconds; one that does not for half a second hangs, or is so busy that the user sees it
/// too. A key press on a program that hangs costs two such waits, a move that is under way when it begins to
/// hang five; the menu bar item stays usable. Main thread, as the windows of other programs are asked for
/// there anyway. Source: AXUIElement.h, AXValue.h.
class MacAccessibility final : public Accessibility {
public:
  static constexpr float longestWait = 0.5F;  ///< seconds

  AccessibilityElementRef application(std::int32_t processID) override;
  AccessibilityElementRef element(Point at) override;
  AccessibilityValue copyAttribute(const AccessibilityElementRef& of, std::string_view name) override;
  bool setAttribute(const AccessibilityElementRef& of, std::string_view name,
                    const AccessibilityValue& value) override;
  std::optional<std::int32_t> owningProcess(const AccessibilityElementRef& of) override;
  std::uint64_t hash(const AccessibilityElementRef& of) override;

private:
  void limitWaiting();

  bool isWaitingLimited_ = false;
};

}  // namespace tilwin::macos
