#include "platform/pointer/PacedDrag.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <optional>
#include <string>
#include <vector>

#include "platform/simulated/SimulatedMainQueue.h"

namespace tilwin {
namespace {

using namespace std::chrono_literals;

/// A drag told to somebody who notes what he is told, at which place, and after how many milliseconds.
struct PacedDrags : testing::Test {
  struct Told {
    std::string what;
    Point at;
    double after = 0;

    bool operator==(const Told&) const = default;
  };

  void note(const std::string& what) {
    const std::chrono::duration<double, std::milli> passed = queue.uptime() - begun;
    told.push_back({what, drag->place().value_or(Point{-1, -1}), std::round(passed.count())});
  }
  void press(Point at) {
    drag->press(at, [this] { note("press"); });
  }
  void release(Point at) {
    drag->release(at, [this] { note("release"); });
  }

  SimulatedMainQueue time;
  MainQueue& queue = time;
  MainQueue::Seconds begun = queue.uptime();
  std::vector<Told> told;
  int pausesEnded = 0;
  std::optional<PacedDrag> drag{std::in_place, queue, [this] { note("move"); }, [this] { ++pausesEnded; }};
};

using Story = std::vector<PacedDrags::Told>;

constexpr Point start{10, 10};
constexpr Point way{200, 20};
constexpr Point edge{0, 30};
constexpr Point beyond{500, 500};

TEST_F(PacedDrags, AReleaseInMotionWaitsForAMoveToItsPlaceAfterThePause) {
  press(start);
  drag->move(way);
  time.advance(8ms);
  release(edge);
  time.advance(22ms);
  EXPECT_EQ(told, (Story{{"press", start, 0}, {"move", way, 0}}));
  time.advance(1ms);
  EXPECT_EQ(told, (Story{{"press", start, 0}, {"move", way, 0}, {"move", edge, 31}, {"release", edge, 31}}));
}

TEST_F(PacedDrags, AReleaseWhereThePointerWasToldIsToldAtOnce) {
  press(start);
  drag->move(edge);
  release(edge);
  EXPECT_EQ(told, (Story{{"press", start, 0}, {"move", edge, 0}, {"release", edge, 0}}));
  time.advance(1s);
  EXPECT_EQ(told.size(), 3U);
}

TEST_F(PacedDrags, AClickIsToldAtOnce) {
  press(start);
  release(start);
  EXPECT_EQ(told, (Story{{"press", start, 0}, {"release", start, 0}}));
  EXPECT_TRUE(time.isIdle());
}

TEST_F(PacedDrags, AReleaseElsewhereLongAfterTheLastMoveIsToldAtOnceAfterAMoveThere) {
  press(start);
  drag->move(way);
  time.advance(40ms);
  release(edge);
  EXPECT_EQ(told, (Story{{"press", start, 0}, {"move", way, 0}, {"move", edge, 40}, {"release", edge, 40}}));
}

TEST_F(PacedDrags, AReleaseElsewhereWithoutAnyMoveIsToldAfterAMoveThere) {
  press(start);
  release(edge);
  EXPECT_EQ(told, (Story{{"press", start, 0}, {"move", edge, 0}, {"release", edge, 0}}));
}

TEST_F(PacedDrags, AReleaseOfNoDragIsToldAsItIs) {
  release(edge);
  EXPECT_EQ(told, (Story{{"release", edge, 0}}));
  press(start);
  drag->move(way);
  release(way);
  release(edge);
  EXPECT_EQ(told.back(), (PacedDrags::Told{"release", edge, 0}));
  EXPECT_EQ(told.size(), 5U);
}

TEST_F(PacedDrags, ThePlaceIsThatOfAReleaseFromTheReleaseUntilItIsTold) {
  press(start);
  EXPECT_EQ(drag->place(), std::nullopt);
  drag->move(way);
  EXPECT_EQ(drag->place(), std::nullopt);
  release(edge);
  for (int passed = 0; passed < 31; ++passed) {
    EXPECT_EQ(drag->place(), edge) << passed;
    time.advance(1ms);
  }
  EXPECT_EQ(told.back().what, "release");
  EXPECT_EQ(drag->place(), std::nullopt);
}

TEST_F(PacedDrags, APressEndsTheWaitOfAReleaseWithoutAMove) {
  press(start);
  drag->move(way);
  release(edge);
  time.advance(10ms);
  press(beyond);
  EXPECT_EQ(told,
            (Story{{"press", start, 0}, {"move", way, 0}, {"release", edge, 10}, {"press", beyond, 10}}));
  time.advance(1s);
  EXPECT_EQ(told.size(), 4U);
}

TEST_F(PacedDrags, TheNextDragMayBeginInThePauseOfTheOneBefore) {
  press(start);
  drag->move(way);
  release(way);
  press(start);
  time.advance(5ms);
  release(edge);
  time.advance(1s);
  EXPECT_EQ(told, (Story{{"press", start, 0},
                         {"move", way, 0},
                         {"release", way, 0},
                         {"press", start, 0},
                         {"move", edge, 31},
                         {"release", edge, 31}}));
}

TEST_F(PacedDrags, OfTheMovesInAPauseTheLastIsToldAtItsEnd) {
  press(start);
  drag->move(way);
  for (double x = 100; x > 0; x -= 20) {
    time.advance(4ms);
    drag->move({x, 20});
  }
  time.advance(11ms);
  EXPECT_EQ(told, (Story{{"press", start, 0}, {"move", way, 0}, {"move", {20, 20}, 31}}));
  time.advance(1s);
  EXPECT_EQ(told.size(), 3U);
}

TEST_F(PacedDrags, NoMoveIsToldWhenItsDragIsOver) {
  press(start);
  drag->move(way);
  drag->move(edge);
  release(way);
  time.advance(1s);
  EXPECT_EQ(told, (Story{{"press", start, 0}, {"move", way, 0}, {"release", way, 0}}));
}

TEST_F(PacedDrags, APauseBeginsOnceTheReceiverHasDealtWithTheMove) {
  drag.emplace(queue, [this] {
    note("move");
    if (told.back().at == way) time.advance(20ms);
  });
  press(start);
  drag->move(way);
  drag->move(edge);
  time.advance(30ms);
  EXPECT_TRUE(drag->isPausing());
  time.advance(1ms);
  EXPECT_EQ(told, (Story{{"press", start, 0}, {"move", way, 0}, {"move", edge, 51}}));
}

TEST_F(PacedDrags, TheEndOfAPauseIsToldToTheAdapterIfNothingElseIs) {
  press(start);
  drag->move(way);
  EXPECT_TRUE(drag->isPausing());
  time.advance(31ms);
  EXPECT_FALSE(drag->isPausing());
  EXPECT_EQ(pausesEnded, 1);
  drag->move(edge);
  release(start);
  time.advance(31ms);
  EXPECT_EQ(told.back().what, "release");
  EXPECT_EQ(pausesEnded, 1);
}

TEST_F(PacedDrags, NothingIsToldAnyMoreOnceItIsGone) {
  press(start);
  drag->move(way);
  release(edge);
  drag.reset();
  time.advance(1s);
  EXPECT_EQ(told.size(), 2U);
}

}  // namespace
}  // namespace tilwin
