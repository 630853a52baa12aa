#include <gtest/gtest.h>

#include "platform/x11/windows/MoveLedger.h"

namespace tilwin::x11 {

namespace {

using Time = MoveLedger::Seconds;

constexpr xcb_window_t text = 9;
constexpr Rect tile{0, 0, 960, 1080};
constexpr Rect byHand{300, 200, 955, 1069};

}  // namespace

namespace {

/// A window that a manager can put exactly where it is asked to, asked at second 10.
class ObedientWindow : public testing::Test {
protected:
  ObedientWindow() { ledger.asked(text, {tile, {}}, Time(10)); }

  /// What is reported for the window, once it has been seen there.
  Rect reportedAt(const Rect& actual, double at) {
    ledger.seen(text, actual, {}, Time(at));
    return ledger.reported(text, actual, Time(at));
  }

  MoveLedger ledger;
};

}  // namespace

TEST_F(ObedientWindow, MovedByAnotherTileRightAfterItStoodWhereItWasAskedToIsReportedWhereItStands) {
  ASSERT_TRUE(ledger.configured(text, Time(10.01)));
  EXPECT_EQ(reportedAt(tile, 10.01), tile);
  ASSERT_TRUE(ledger.configured(text, Time(10.04)));
  EXPECT_EQ(reportedAt(byHand, 10.04), byHand);
  EXPECT_EQ(reportedAt(byHand, 12), byHand);
}

TEST_F(ObedientWindow, SeenElsewhereOnItsWayIsReportedWhereItWasAskedTo) {
  EXPECT_EQ(reportedAt(byHand, 10.01), tile);
  EXPECT_EQ(reportedAt(tile, 10.02), tile);
  EXPECT_EQ(reportedAt(tile, 4000), tile);
}

TEST_F(ObedientWindow, ThatMayStillShowTheAnswerToAnEarlierRequestIsNotTakenForDone) {
  const Rect otherTile{960, 0, 960, 1080};
  ledger.asked(text, {otherTile, {}}, Time(10.001));
  ledger.asked(text, {tile, {}}, Time(10.002));
  EXPECT_EQ(reportedAt(tile, 10.003), tile) << "from the first request";
  EXPECT_EQ(reportedAt(otherTile, 10.004), tile) << "from the second";
  EXPECT_EQ(reportedAt(tile, 10.005), tile);
}

TEST_F(ObedientWindow, AskedAfterItStoodIsDoneOnceItStandsAgain) {
  EXPECT_EQ(reportedAt(tile, 10.01), tile);
  const Rect otherTile{960, 0, 960, 1080};
  ledger.asked(text, {otherTile, {}}, Time(10.02));
  EXPECT_EQ(reportedAt(otherTile, 10.03), otherTile);
  EXPECT_EQ(reportedAt(byHand, 10.04), byHand);
}

TEST_F(ObedientWindow, ThatLeavesAStateOnItsWayMayTakeALittleLonger) {
  ledger.asked(text, {.frame = tile, .shape = {}, .isDirect = false}, Time(20));
  ASSERT_TRUE(ledger.configured(text, Time(20.01)));
  EXPECT_EQ(reportedAt(tile, 20.01), tile);
  EXPECT_EQ(reportedAt(byHand, 20.02), tile);
}

TEST_F(ObedientWindow, ThatChangesItsShapeIsNotTakenForMoved) {
  EXPECT_EQ(reportedAt(tile, 10.01), tile);
  const FrameShape shadowed{.decoration = {}, .shadow = {26, 26, 23, 29}};
  ledger.seen(text, byHand, shadowed, Time(10.02));
  EXPECT_EQ(ledger.reported(text, byHand, Time(10.02)), tile);
  EXPECT_TRUE(ledger.correctable(text, Time(10.03)));
}

namespace {

/// A window of at least 1200 points, of which the ledger does not know, asked at second 10 for the right
/// half.
class TooLargeWindow : public testing::Test {
protected:
  TooLargeWindow() {
    MoveLedger::Request request{.frame = {960, 0, 960, 1080}, .shape = {}};
    request.place = {.tile = request.frame, .area = {0, 0, 1920, 1080}, .before = {100, 100, 1300, 700}};
    ledger.asked(text, request, Time(10));
    ledger.configured(text, Time(10.01));
  }

  static constexpr Rect tooFar{960, 0, 1200, 1080};
  static constexpr Rect atTheEdge{720, 0, 1200, 1080};
  MoveLedger ledger;
};

}  // namespace

TEST_F(TooLargeWindow, IsAskedToStandWhereItsSizeBelongsOnceTheAnswerIsOver) {
  EXPECT_TRUE(ledger.mayBeDisplaced(text, tooFar));
  EXPECT_FALSE(ledger.displaced(text, tooFar, Time(10.1)));
  const auto request = ledger.displaced(text, tooFar, Time(10.12));
  ASSERT_TRUE(request);
  EXPECT_EQ(request->expected, (Rect{720, 0, 960, 1080}));
  EXPECT_EQ(ledger.reported(text, tooFar, Time(10.13)), (Rect{960, 0, 960, 1080}));
}

TEST_F(TooLargeWindow, ThatStandsWhereItsSizeBelongsIsReportedAtItsTile) {
  ASSERT_TRUE(ledger.displaced(text, tooFar, Time(10.12)));
  ASSERT_TRUE(ledger.configured(text, Time(10.13)));
  EXPECT_FALSE(ledger.displaced(text, atTheEdge, Time(10.3)));
  EXPECT_EQ(ledger.reported(text, atTheEdge, Time(10.3)), (Rect{960, 0, 960, 1080}));
  EXPECT_EQ(ledger.reported(text, tooFar, Time(10.4)), tooFar);
}

TEST_F(TooLargeWindow, ThatOnlyTookLongToShrinkIsAskedToItsTileAgain) {
  ASSERT_TRUE(ledger.displaced(text, tooFar, Time(10.12)));
  ASSERT_TRUE(ledger.configured(text, Time(10.13)));
  const auto request = ledger.displaced(text, {720, 0, 960, 1080}, Time(10.3));
  ASSERT_TRUE(request);
  EXPECT_EQ(request->expected, (Rect{960, 0, 960, 1080}));
}

TEST_F(TooLargeWindow, ThatIsNeverWhereItIsAskedToIsLeftThereInTheEnd) {
  double now = 10.12;
  for (int count = 0; count < 3; ++count, now += 0.2) {
    ASSERT_TRUE(ledger.displaced(text, tooFar, Time(now)));
    ASSERT_TRUE(ledger.configured(text, Time(now + 0.01)));
  }
  EXPECT_FALSE(ledger.mayBeDisplaced(text, tooFar));
  EXPECT_FALSE(ledger.displaced(text, tooFar, Time(now)));
}

TEST_F(TooLargeWindow, ThatTheDisplayHasNoRoomForIsAskedToBeSmallerInItsProportions) {
  const auto request = ledger.displaced(text, {960, 0, 960, 1200}, Time(10.12));
  ASSERT_TRUE(request);
  EXPECT_EQ(request->expected, (Rect{960, 0, 864, 1080}));
  ASSERT_TRUE(ledger.configured(text, Time(10.13)));
  EXPECT_FALSE(ledger.displaced(text, {960, 0, 960, 1200}, Time(10.3))) << "it refuses";
}

TEST_F(TooLargeWindow, ThatComesToStandElsewhereIsAskedForOnceMore) {
  constexpr Rect elsewhere{964, 0, 960, 1080};
  ASSERT_TRUE(ledger.mayBeDisplaced(text, elsewhere));
  const auto request = ledger.displaced(text, elsewhere, Time(10.12));
  ASSERT_TRUE(request);
  EXPECT_EQ(request->expected, (Rect{960, 0, 960, 1080}));
}

TEST_F(TooLargeWindow, ThatAnsweredOnlyBeforeItWasAskedOnceMoreIsStillAskedToStandWhereItsSizeBelongs) {
  ledger.repeated(text, Time(10.1));
  EXPECT_FALSE(ledger.displaced(text, tooFar, Time(10.5))) << "the second answer may still come";
  EXPECT_EQ(ledger.reported(text, tooFar, Time(10.7)), (Rect{960, 0, 960, 1080}));
  EXPECT_TRUE(ledger.displaced(text, tooFar, Time(10.7)));
}

TEST_F(TooLargeWindow, WithoutAnAnswerIsNotAskedAgain) {
  ledger.asked(text, {.frame = tile, .shape = {}}, Time(20));
  EXPECT_FALSE(ledger.displaced(text, byHand, Time(21)));
}

}  // namespace tilwin::x11
