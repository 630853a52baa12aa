#include "tests/desktop/drags/DragTest.h"
#include "tests/desktop/harness/ResourceUse.h"

namespace tilwin::desktop {

namespace {

constexpr Milliseconds restTime{1000};

/// While no button is down the server has to tell Tilwin of no key and of no motion: then neither wakes it.
class DragPrivacy : public Drags {
protected:
  static testing::AssertionResult sleepsThroughKeysAndMotion() {
    // The first key may still change a property of a window just snapped, which Tilwin hears of once.
    typeAndMove();
    const auto before = wakeUpsAtRest();
    typeAndMove();
    const auto after = wakeUpsAtRest();
    if (after == before) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "it woke " << after - before << " times";
  }

private:
  static void typeAndMove() {
    for (const char* key : {"s", "e", "c", "r", "e", "t"}) press(key);
    hand().glide({1200, 900}, 60);
    hand().glide({1000, 800}, 60);
  }

  static std::int64_t wakeUps() { return useOf(tilwin().process().pid()).value_or(ResourceUse()).wakeUps; }

  /// How often it has woken, once it sleeps.
  static std::int64_t wakeUpsAtRest() {
    auto seen = wakeUps();
    for (int tries = 0; tries < 10; ++tries) {
      desktop().waitUntil([] { return false; }, restTime);
      const auto now = wakeUps();
      if (now == seen) break;
      seen = now;
    }
    return seen;
  }
};

}  // namespace

TEST_F(DragPrivacy, AfterADragKeysAndMotionNoLongerWakeTilwin) {
  const TestWindow window = session().window();
  EXPECT_TRUE(stillSnaps(window.id()));
  EXPECT_TRUE(sleepsThroughKeysAndMotion());
}

TEST_F(DragPrivacy, AfterADragThatEscapeCalledOffKeysAndMotionNoLongerWakeTilwin) {
  const TestWindow window = session().window();
  dragTo(atLeftEdge, window.id());
  ASSERT_TRUE(previews(leftHalf));
  press("Escape");
  EXPECT_TRUE(desktop().waitForFrame(window.id(), startFrame));
  letGo();
  EXPECT_TRUE(sleepsThroughKeysAndMotion());
}

}  // namespace tilwin::desktop
