#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include "platform/ports/Bundle.h"

namespace tilwin::contract {

/// A user whose Application Support folder is not there yet, and the adapter under test.
class BundleWorld {
public:
  BundleWorld() = default;
  BundleWorld(const BundleWorld&) = delete;
  BundleWorld& operator=(const BundleWorld&) = delete;
  virtual ~BundleWorld() = default;

  virtual Bundle& bundle() = 0;
  [[nodiscard]] virtual std::filesystem::path folder() const = 0;
};

using BundleWorldMaker = std::unique_ptr<BundleWorld> (*)();

class BundleContract : public testing::TestWithParam<BundleWorldMaker> {
protected:
  std::unique_ptr<BundleWorld> world = GetParam()();
};

}  // namespace tilwin::contract
