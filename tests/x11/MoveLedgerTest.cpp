#include "platform/x11/windows/MoveLedger.h"

#include <gtest/gtest.h>

namespace tilwin::x11 {

namespace {

using Seconds = MoveLedger::Seconds;

constexpr xcb_window_t terminal = 7;
constexpr Rect askedFor{0, 0, 960, 1080};
constexpr Rect roundedToCells{0, 0, 955, 1069};
constexpr Rect elsewhere{300, 200, 955, 1069};

/// A terminal asked at second 10 for half the screen, which its manager answered with whole cells.
class AnsweredMove : public testing::Test {
protected:
  AnsweredMove() {
    ledger.asked(terminal, {askedFor, {}}, Seconds(10));
    ledger.configured(terminal, Seconds(10.01));
  }

  MoveLedger ledger;
};

}  // namespace

TEST_F(AnsweredMove, TheFrameAskedForIsReportedWhileTheWindowStandsWhereItWasPut) {
  EXPECT_EQ(ledger.reported(terminal, roundedToCells, Seconds(11)), askedFor);
  EXPECT_EQ(ledger.reported(terminal, roundedToCells, Seconds(4000)), askedFor);
}

TEST_F(AnsweredMove, TheFrameAskedForIsReportedBeforeTheManagerHasAnswered) {
  ledger.asked(terminal, {{960, 0, 960, 1080}, {}}, Seconds(20));
  EXPECT_EQ(ledger.reported(terminal, roundedToCells, Seconds(20.001)), (Rect{960, 0, 960, 1080}));
}

TEST_F(AnsweredMove, TheRestOfTheBurstBelongsToTheAnswer) {
  EXPECT_TRUE(ledger.configured(terminal, Seconds(10.05)));
  EXPECT_EQ(ledger.reported(terminal, roundedToCells, Seconds(10.06)), askedFor);
}

TEST_F(AnsweredMove, AWindowDraggedAwayRightAfterTheAnswerIsReportedWhereItStands) {
  EXPECT_FALSE(ledger.configured(terminal, Seconds(10.2)));
  EXPECT_EQ(ledger.reported(terminal, elsewhere, Seconds(10.3)), elsewhere);
}

TEST_F(AnsweredMove, AWindowMovedLaterBySomebodyElseIsReportedWhereItStands) {
  EXPECT_FALSE(ledger.configured(terminal, Seconds(60)));
  EXPECT_EQ(ledger.reported(terminal, elsewhere, Seconds(61)), elsewhere);
}

TEST_F(AnsweredMove, AWindowThatWentUnseenIsReportedWhereItStandsEvenAfterItComesBack) {
  EXPECT_EQ(ledger.reported(terminal, roundedToCells, Seconds(11)), askedFor);
  EXPECT_EQ(ledger.reported(terminal, elsewhere, Seconds(12)), elsewhere);
  EXPECT_EQ(ledger.reported(terminal, roundedToCells, Seconds(13)), roundedToCells);
}

TEST_F(AnsweredMove, WhatComesAfterTheRequestWasMadeAgainIsTheAnswer) {
  ledger.repeated(terminal, Seconds(10.3));
  EXPECT_TRUE(ledger.configured(terminal, Seconds(10.4)));
  EXPECT_EQ(ledger.reported(terminal, roundedToCells, Seconds(11)), askedFor);
  EXPECT_FALSE(ledger.configured(terminal, Seconds(12)));
  ledger.repeated(terminal, Seconds(12));
  EXPECT_FALSE(ledger.configured(terminal, Seconds(12))) << "there is nothing to repeat";
}

TEST_F(AnsweredMove, AClosedWindowIsForgotten) {
  ledger.forget(terminal);
  EXPECT_EQ(ledger.reported(terminal, roundedToCells, Seconds(11)), roundedToCells);
}

TEST(MoveLedger, AWindowNeverMovedIsReportedWhereItStands) {
  MoveLedger ledger;
  EXPECT_FALSE(ledger.configured(terminal, Seconds(1)));
  EXPECT_EQ(ledger.reported(terminal, elsewhere, Seconds(1)), elsewhere);
}

TEST(MoveLedger, ARequestThatNobodyAnsweredIsNotBelieved) {
  MoveLedger ledger;
  ledger.asked(terminal, {askedFor, {}}, Seconds(10));
  EXPECT_EQ(ledger.reported(terminal, elsewhere, Seconds(11)), elsewhere);
}

TEST(MoveLedger, AManagerHasHalfASecondToAnswer) {
  MoveLedger ledger;
  ledger.asked(terminal, {askedFor, {}}, Seconds(10));
  EXPECT_EQ(ledger.reported(terminal, elsewhere, Seconds(10.5)), askedFor);
  EXPECT_TRUE(ledger.configured(terminal, Seconds(10.5)));
  EXPECT_EQ(ledger.reported(terminal, elsewhere, Seconds(11)), askedFor);
}

TEST(MoveLedger, WhatAWindowDoesLaterThanHalfASecondIsNoAnswer) {
  MoveLedger ledger;
  ledger.asked(terminal, {askedFor, {}}, Seconds(10));
  EXPECT_FALSE(ledger.configured(terminal, Seconds(10.501)));
  EXPECT_EQ(ledger.reported(terminal, elsewhere, Seconds(10.501)), elsewhere);
}

TEST(MoveLedger, AnAnswerLastsATenthOfASecondFromItsBeginning) {
  MoveLedger ledger;
  ledger.asked(terminal, {askedFor, {}}, Seconds(-0.4));
  ASSERT_TRUE(ledger.configured(terminal, Seconds(0)));
  EXPECT_TRUE(ledger.configured(terminal, Seconds(0.05)));
  EXPECT_TRUE(ledger.configured(terminal, Seconds(0.1)));
  EXPECT_FALSE(ledger.configured(terminal, Seconds(0.101)));
}

TEST(MoveLedger, ARequestThatChangesNothingButForWholeCellsNeedsNoAnswer) {
  MoveLedger ledger;
  ledger.asked(terminal, {askedFor, {}}, Seconds(10));
  EXPECT_EQ(ledger.reported(terminal, roundedToCells, Seconds(11)), askedFor);
}

TEST(MoveLedger, WholeCellsMayTakeSomethingOfOneDirectionOnly) {
  for (const Rect& rounded : {Rect{0, 0, 955, 1080}, Rect{0, 0, 960, 1069}, askedFor}) {
    MoveLedger ledger;
    ledger.asked(terminal, {askedFor, {}}, Seconds(10));
    EXPECT_EQ(ledger.reported(terminal, rounded, Seconds(11)), askedFor);
  }
}

TEST(MoveLedger, ARequestThatTookMoreThanACellOrPutTheWindowElsewhereNeedsAnAnswer) {
  for (const Rect& other : {Rect{0, 0, 896, 1080}, Rect{0, 0, 960, 1016}, Rect{0, 0, 961, 1080},
                            Rect{0, 0, 960, 1081}, Rect{1, 0, 960, 1080}, Rect{0, 1, 960, 1080}}) {
    MoveLedger ledger;
    ledger.asked(terminal, {askedFor, {}}, Seconds(10));
    EXPECT_EQ(ledger.reported(terminal, other, Seconds(11)), other);
  }
}

TEST(MoveLedger, ARequestCanBeCorrectedForAShortTimeOnly) {
  MoveLedger ledger;
  const FrameShape shape{.decoration = {1, 1, 20, 1}, .shadow = {}};
  ledger.asked(terminal, {askedFor, shape}, Seconds(10));
  const auto request = ledger.correctable(terminal, Seconds(10.9));
  ASSERT_TRUE(request);
  EXPECT_EQ(request->frame, askedFor);
  EXPECT_EQ(request->shape, shape);
  EXPECT_TRUE(ledger.correctable(terminal, Seconds(11)));
  EXPECT_FALSE(ledger.correctable(terminal, Seconds(11.001)));
}

TEST(MoveLedger, ARequestThatIsNotToBeCorrectedIsNot) {
  MoveLedger ledger;
  ledger.asked(terminal, {.frame = askedFor, .shape = {}, .isCorrectable = false}, Seconds(10));
  EXPECT_FALSE(ledger.correctable(terminal, Seconds(10.1)));
}

TEST(MoveLedger, CorrectionsDoNotMakeThatTimeLonger) {
  MoveLedger ledger;
  const FrameShape shape{.decoration = {1, 1, 20, 1}, .shadow = {}};
  ledger.asked(terminal, {askedFor, {}}, Seconds(10));
  ledger.corrected(terminal, {askedFor, shape}, Seconds(10.9));
  const auto request = ledger.correctable(terminal, Seconds(11));
  ASSERT_TRUE(request);
  EXPECT_EQ(request->frame, askedFor);
  EXPECT_EQ(request->shape, shape);
  EXPECT_FALSE(ledger.correctable(terminal, Seconds(11.001)));
  EXPECT_EQ(ledger.reported(terminal, elsewhere, Seconds(11.3)), askedFor);
}

TEST(MoveLedger, ARequestIsCorrectedAFewTimesOnly) {
  MoveLedger ledger;
  ledger.asked(terminal, {askedFor, {}}, Seconds(10));
  for (int times = 0; times < MoveLedger::mostCorrections; ++times) {
    ASSERT_TRUE(ledger.correctable(terminal, Seconds(10.1)));
    ledger.corrected(terminal, {askedFor, {}}, Seconds(10.1));
  }
  EXPECT_FALSE(ledger.correctable(terminal, Seconds(10.1)));
  ledger.asked(terminal, {askedFor, {}}, Seconds(10.2));
  EXPECT_TRUE(ledger.correctable(terminal, Seconds(10.3)));
}

namespace {

/// A window let go at second 10 for half the screen, while others may still be moving it.
class DroppedWindow : public testing::Test {
protected:
  DroppedWindow() { ledger.asked(terminal, {askedFor, {}, 2}, Seconds(10)); }

  MoveLedger ledger;
};

}  // namespace

TEST_F(DroppedWindow, IsAskedForAgainWhenItStandsElsewhere) {
  ASSERT_TRUE(ledger.configured(terminal, Seconds(10.02)));
  const auto request = ledger.contested(terminal, elsewhere, Seconds(10.02));
  ASSERT_TRUE(request);
  EXPECT_EQ(request->frame, askedFor);
}

TEST_F(DroppedWindow, IsNotAskedForAgainWhenOnlyItsSizeDiffers) {
  EXPECT_FALSE(ledger.contested(terminal, roundedToCells, Seconds(10.02)));
  EXPECT_FALSE(ledger.contested(terminal, askedFor, Seconds(10.02)));
}

TEST_F(DroppedWindow, IsLeftToTheOtherAfterSoManyTimes) {
  EXPECT_TRUE(ledger.contested(terminal, elsewhere, Seconds(10.01)));
  EXPECT_TRUE(ledger.contested(terminal, elsewhere, Seconds(10.02)));
  EXPECT_FALSE(ledger.mayRepeat(terminal));
  EXPECT_FALSE(ledger.contested(terminal, elsewhere, Seconds(10.03)));
}

TEST_F(DroppedWindow, IsSomebodyElsesOnceTheAnswerIsOver) {
  ASSERT_TRUE(ledger.configured(terminal, Seconds(10.01)));
  EXPECT_FALSE(ledger.contested(terminal, elsewhere, Seconds(10.2)));
}

TEST_F(AnsweredMove, AWindowThatWasNotDroppedIsNeverAskedForAgain) {
  EXPECT_FALSE(ledger.mayRepeat(terminal));
  EXPECT_FALSE(ledger.contested(terminal, elsewhere, Seconds(10.02)));
  EXPECT_FALSE(ledger.contested(terminal + 1, elsewhere, Seconds(10.02)));
}

}  // namespace tilwin::x11
