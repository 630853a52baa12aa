#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "tests/contract/X11PointerDrag.h"

namespace tilwin::x11 {

namespace {

using desktop::Clock;
using desktop::Milliseconds;

class X11PointerPace : public X11PointerDrag {};

}  // namespace

TEST_F(X11PointerPace, TellsNoMoveSoonerThanAPauseAfterTheLastWasDealtWith) {
  int told = 0;
  std::optional<Clock::time_point> noted;
  const auto token = onMoves([&] {
    if (noted) {
      EXPECT_GT(Clock::now() - *noted, pause) << "after move " << told;
    }
    std::this_thread::sleep_for(pause * 2 / 3);
    noted = Clock::now();
    ++told;
  });
  hand().buttonDown();
  for (int x = 100; x < 200; ++x) {
    hand().movePointer({x, 100});
    runMainLoop(Milliseconds{4});
  }
  hand().buttonUp();
  EXPECT_GT(told, 3);
}

TEST_F(X11PointerPace, MotionsThatArriveTogetherAreOneMove) {
  int told = 0;
  const auto token = onMoves([&] { ++told; });
  hand().buttonDown();
  arrive();
  for (const int x : {100, 150, 200}) hand().movePointer({x, 100});
  arrive();
  EXPECT_EQ(told, 1);
  hand().buttonUp();
}

TEST_F(X11PointerPace, ClicksWithoutPauseAreToldOfAFewTimesInATurnAndTheLastOfThemCounts) {
  std::vector<PointerEvent> told;
  std::vector<std::unique_ptr<PointerMonitor::Token>> tokens;
  for (const auto event : {PointerEvent::leftMouseDown, PointerEvent::leftMouseUp}) {
    tokens.push_back(pointer_->addGlobal(event, [&](PointerEvent seen) { told.push_back(seen); }));
  }
  arrive();
  for (int clicks = 0; clicks < 50; ++clicks) {
    hand().buttonDown();
    hand().buttonUp();
  }
  hand().buttonDown();
  arrive();
  EXPECT_LE(told.size(), 8U);
  ASSERT_FALSE(told.empty());
  EXPECT_EQ(told.back(), PointerEvent::leftMouseDown);
  hand().buttonUp();
}

TEST_F(X11PointerPace, AMotionThatArrivesAfterTheReleaseIsNoMove) {
  int told = 0;
  const auto token = onMoves([&] { ++told; });
  hand().buttonDown();
  arrive();
  hand().buttonUp();
  hand().movePointer({300, 200});
  arrive();
  EXPECT_EQ(told, 0);
}

TEST_F(X11PointerPace, ThePlaceOfTheHeldWindowComesWithTheLookAtThePointer) {
  const auto window = session_.window({.area = {400, 300, 500, 400}});
  const auto frame = held_->frame(window.id());
  ASSERT_TRUE(frame);
  std::optional<Rect> seen;
  unsigned requests = 0;
  const auto token = onMoves([&] {
    const unsigned before = sequence();
    seen = held_->frame(window.id());
    requests = sequence() - before - 1;
  });
  hand().buttonDown();
  arrive();
  hand().movePointer({100, 50});
  arrive();
  hand().buttonUp();
  EXPECT_EQ(seen, frame);
  EXPECT_EQ(requests, 0) << "the frame was asked for by itself";
}

TEST_F(X11PointerPace, TheHeldWindowIsLetGoOnceTheReleaseHasBeenTold) {
  const auto window = session_.window({.area = {400, 300, 500, 400}});
  std::optional<bool> wasHeld;
  const auto token = pointer_->addGlobal(PointerEvent::leftMouseUp,
                                         [&](PointerEvent) { wasHeld = held_->isHeld(window.id()); });
  (void)pointer_->position();
  hand().buttonDown();
  arrive();
  ASSERT_TRUE(held_->frame(window.id()));
  hand().buttonUp();
  ASSERT_TRUE(runMainLoopUntil([&] { return wasHeld.has_value(); }, pause * 100));
  EXPECT_EQ(wasHeld, true) << "who is told may still move the window that was dropped";
  EXPECT_FALSE(held_->isHeld(window.id()));
}

TEST_F(X11PointerPace, AReleaseWhereThePointerRestsIsToldWithoutAskingWhereItIs) {
  std::vector<std::string> told;
  const auto token = onMoves([&] { told.emplace_back("move"); });
  const auto released =
      pointer_->addGlobal(PointerEvent::leftMouseUp, [&](PointerEvent) { told.emplace_back("release"); });
  hand().buttonDown();
  arrive();
  hand().movePointer({300, 200});
  runMainLoop(4 * pause);
  const unsigned before = sequence();
  hand().buttonUp();
  ASSERT_TRUE(runMainLoopUntil([&] { return told.size() == 2; }, pause * 100));
  EXPECT_EQ(told, (std::vector<std::string>{"move", "release"}));
  EXPECT_EQ(sequence() - before - 1, 1U) << "more than the end of motion and key events was asked for";
}

}  // namespace tilwin::x11
