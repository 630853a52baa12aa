#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

#include "tests/desktop/DesktopTest.h"
#include "tests/desktop/floods/RequestWatch.h"
#include "tests/desktop/harness/ResourceUse.h"

namespace tilwin::desktop {

/// What a flood must not make worse than this.
struct FloodLimits {
  static constexpr Milliseconds answer{250};     ///< to a press
  static constexpr std::int64_t memory = 10240;  ///< KiB more than before
};

/// A desktop with a panel, a snapped window and a focused one, to be flooded.
class FloodedDesktop : public DesktopTest {
protected:
  static constexpr Milliseconds patience{5000};
  static constexpr const char* rightHalfKeys = "Control+Alt+Right";

  void SetUp() override {
    constexpr PixelPoint onPanel{900, 20};
    session().input().movePointer(onPanel);
    focus(snapped_.id());
    press(leftHalfKeys);
    EXPECT_TRUE(stands(snapped_.id(), {0, 40, 960, 1040}));
    focus(focused_.id());
    before_ = memory();
  }

  /// Presses the shortcut of a half and returns how long it takes until the window is asked to go there.
  std::optional<Milliseconds> answerTo(const char* keys) {
    const bool isRight = std::string(keys) == rightHalfKeys;
    requests_.forget();
    const auto pressed = session().input().press(keys);
    const auto asked = requests_.wait(
        focused_.id(), [&](int left) { return (left > 480) == isRight; }, patience);
    if (!asked) return std::nullopt;
    return std::chrono::ceil<Milliseconds>(*asked - pressed);
  }

  /// The longest answer to presses one after the other; the patience if one is not answered.
  Milliseconds longestAnswer() {
    constexpr int presses = 6;
    Milliseconds result{0};
    for (int count = 0; count < presses; ++count) {
      result = std::max(result, answerTo(count % 2 == 0 ? rightHalfKeys : leftHalfKeys).value_or(patience));
    }
    return result;
  }

  /// KiB more than before the flood.
  std::int64_t growth() const { return memory() - before_; }

  const TestWindow& panel() const { return panel_; }
  const TestWindow& snapped() const { return snapped_; }
  const TestWindow& focused() const { return focused_; }

private:
  static std::int64_t memory() {
    return useOf(tilwin().process().pid()).value_or(ResourceUse()).proportionalKiB;
  }

  TestWindow panel_ = session().window({.title = "Panel",
                                        .area = {0, 0, 1920, 40},
                                        .kind = WindowKind::dock,
                                        .strut = {.top = 40},
                                        .strutSpans = {0, 0, 0, 0, 0, 1919, 0, 0}});
  TestWindow snapped_ = session().window({.title = "Snapped"});
  TestWindow focused_ = session().window({.title = "Focused", .undecorated = true});
  RequestWatch requests_{session().server().display()};
  std::int64_t before_ = 0;
};

}  // namespace tilwin::desktop
