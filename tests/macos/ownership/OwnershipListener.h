#pragma once

#include <gtest/gtest.h>

namespace tilwin::macos {

/// Fails each test at whose end an object of a C interface has an owner left, or during which one was
/// released too often, used after its release, or taken for another type.
class OwnershipListener : public testing::EmptyTestEventListener {
public:
  void OnTestEnd(
      const testing::TestInfo& test) override;  // NOLINT(readability-identifier-naming): GoogleTest's name
};

}  // namespace tilwin::macos
