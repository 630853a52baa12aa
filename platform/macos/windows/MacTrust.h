#pragma once

#include "platform/ports/AccessibilityTrust.h"

namespace tilwin::macos {

/// Whether this program is allowed under Privacy & Security > Accessibility in the system's settings. The
/// question is the system's own, with a button that leads there. Any thread. Source: AXUIElement.h.
class MacTrust final : public AccessibilityTrust {
public:
  bool isTrusted() override;
  void ask() override;
};

}  // namespace tilwin::macos
