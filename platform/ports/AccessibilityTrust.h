#pragma once

namespace tilwin {

/// Whether the user lets this program see and move other programs' windows.
class AccessibilityTrust {
public:
  AccessibilityTrust() = default;
  AccessibilityTrust(const AccessibilityTrust&) = delete;
  AccessibilityTrust& operator=(const AccessibilityTrust&) = delete;
  virtual ~AccessibilityTrust() = default;

  [[nodiscard]] virtual bool isTrusted() = 0;
  /// Has the desktop ask the user, who may answer much later.
  virtual void ask() = 0;
};

}  // namespace tilwin
