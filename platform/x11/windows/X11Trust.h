#pragma once

#include "platform/ports/AccessibilityTrust.h"

namespace tilwin::x11 {

/// Always trusted, because an X server lets every client see and move all windows.
class X11Trust : public AccessibilityTrust {
public:
  [[nodiscard]] bool isTrusted() override { return true; }
  void ask() override {}
};

}  // namespace tilwin::x11
