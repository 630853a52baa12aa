#pragma once

#include "platform/ports/AccessibilityTrust.h"

namespace tilwin {

/// A user who trusts this program until told otherwise, and who answers no question.
class SimulatedTrust final : public AccessibilityTrust {
public:
  void setTrusted(bool trusted) { trusted_ = trusted; }
  /// How often the user has been asked.
  [[nodiscard]] int askCount() const { return askCount_; }

private:
  bool isTrusted() override { return trusted_; }
  void ask() override { ++askCount_; }

  bool trusted_ = true;
  int askCount_ = 0;
};

}  // namespace tilwin
