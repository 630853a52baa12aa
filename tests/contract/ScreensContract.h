#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "platform/ports/Screens.h"

namespace tilwin::contract {

/// A desktop whose screens can be chosen, and the adapter under test.
class ScreensWorld {
public:
  ScreensWorld() = default;
  ScreensWorld(const ScreensWorld&) = delete;
  ScreensWorld& operator=(const ScreensWorld&) = delete;
  virtual ~ScreensWorld() = default;

  virtual Screens& screens() = 0;
  /// From now on the desktop has exactly these, the primary one first.
  virtual void connect(const std::vector<Screen>& screens) = 0;
};

using ScreensWorldMaker = std::unique_ptr<ScreensWorld> (*)();

class ScreensContract : public testing::TestWithParam<ScreensWorldMaker> {
protected:
  std::unique_ptr<ScreensWorld> world = GetParam()();
};

}  // namespace tilwin::contract
