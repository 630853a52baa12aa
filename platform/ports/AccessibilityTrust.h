#pragma once

namespace tilwin {

/// Whether the user allows this program to see and move other programs' windows. Main thread only.
class AccessibilityTrust {
public:
  AccessibilityTrust() = default;
  AccessibilityTrust(const AccessibilityTrust&) = delete;
  AccessibilityTrust& operator=(const AccessibilityTrust&) = delete;
  virtual ~AccessibilityTrust() = default;

  [[nodiscard]] virtual bool isTrusted() = 0;
  /// Makes the desktop ask the user for permission. Returns at once; the answer may come much later.
  virtual void ask() = 0;
};

}  // namespace tilwin
