#include "platform/drawing/RowLayout.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <deque>
#include <optional>

namespace tilwin::drawing {
namespace {

/// Text that is broken into lines of 20 points as it must, or a control of a fixed height.
struct Piece {
  double width = 0;
  double height = 20;
  bool isText = true;
};

struct Paper {
  using View = const Piece*;

  static constexpr RowMetrics metrics{.ring = 3, .controlGap = 2};

  static bool isShown(View piece) { return piece != nullptr; }
  static double naturalWidth(View piece) { return piece->width; }
  static double height(View piece, double width) {
    return piece->isText ? std::ceil(piece->width / width) * piece->height : piece->height;
  }
  static double beside(View piece) { return piece->isText ? 4 : 0; }
};

class RowLayoutTest : public testing::Test {
protected:
  using Layout = RowLayout<Paper>;

  const Piece* text(double width) { return &pieces.emplace_back(Piece{.width = width}); }
  const Piece* control(double width) {
    return &pieces.emplace_back(Piece{.width = width, .height = 34, .isText = false});
  }
  /// Where the piece is in a row of this width; nothing if it is nowhere.
  std::optional<Rect> place(const Piece* piece, double width) const {
    const Layout layout(parts, width);
    for (const auto& [view, area] : layout.places()) {
      if (view == piece) return area;
    }
    return std::nullopt;
  }

  [[nodiscard]] std::size_t shownPieces() const {
    const auto single = std::to_array({parts.picture, parts.title, parts.note, parts.problem});
    auto count = single.size() - static_cast<std::size_t>(std::ranges::count(single, nullptr));
    for (const auto& control : parts.controls) count += control.caption != nullptr ? 2 : 1;
    return count;
  }

  std::deque<Piece> pieces;
  RowParts<const Piece*> parts;
};

bool overlap(const Rect& first, const Rect& second) {
  return first.x < second.maxX() && second.x < first.maxX() && first.y < second.maxY() &&
         second.y < first.maxY();
}

}  // namespace

TEST_F(RowLayoutTest, ControlsStandAtTheRightWithTheirBodiesInLineWithTexts) {
  parts.title = text(100);
  const auto* const reset = control(60);
  const auto* const keys = control(90);
  parts.controls = {{reset}, {keys}};
  EXPECT_EQ(place(parts.title, 500), (Rect{3, 7, 324, 20}));
  EXPECT_EQ(place(keys, 500), (Rect{410, 0, 90, 34}));
  EXPECT_EQ(place(reset, 500), (Rect{348, 0, 60, 34}));
}

TEST_F(RowLayoutTest, ControlsGoBelowATitleThatWouldBeTooNarrow) {
  parts.title = text(150);
  const auto* const keys = control(200);
  parts.controls = {{keys}};
  EXPECT_EQ(place(parts.title, 250), (Rect{3, 4, 244, 20}));
  EXPECT_EQ(place(keys, 250), (Rect{0, 28, 200, 34}));
}

TEST_F(RowLayoutTest, ASliderTakesTheRoomBetweenTheColumnsOfTitlesAndCaptions) {
  parts.title = text(60);
  parts.columns = {.title = 80, .caption = 40};
  const auto* const slider = control(10);
  const auto* const caption = text(30);
  parts.controls = {{slider, caption, true}};
  EXPECT_EQ(place(slider, 400), (Rect{96, 0, 256, 34}));
  EXPECT_EQ(place(caption, 400), (Rect{357, 7, 40, 20}));
}

TEST_F(RowLayoutTest, ASliderThatWouldBeTooShortGoesBelowItsTitle) {
  parts.title = text(60);
  parts.columns = {.title = 80, .caption = 40};
  const auto* const slider = control(10);
  const auto* const caption = text(30);
  parts.controls = {{slider, caption, true}};
  EXPECT_EQ(place(caption, 240), (Rect{207, 8, 30, 20}));
  EXPECT_EQ(place(slider, 240), (Rect{0, 28, 240, 34}));
}

TEST_F(RowLayoutTest, ButtonsThatDoNotFitInALineFlowToTheNext) {
  const auto* const first = control(120);
  const auto* const second = control(120);
  parts.controls = {{first}, {second}};
  EXPECT_EQ(place(first, 300), (Rect{0, 0, 120, 34}));
  EXPECT_EQ(place(second, 300), (Rect{122, 0, 120, 34}));
  EXPECT_EQ(place(second, 200), (Rect{0, 34, 120, 34}));
}

TEST_F(RowLayoutTest, NoteAndProblemStandBelowBesideThePicture) {
  parts.picture = control(40);
  parts.title = text(100);
  parts.note = text(300);
  parts.problem = text(100);
  parts.padding = 5;
  EXPECT_EQ(place(parts.picture, 200), (Rect{3, 5, 40, 34}));
  EXPECT_EQ(place(parts.note, 200), (Rect{59, 41, 138, 60}));
  EXPECT_EQ(place(parts.problem, 200), (Rect{59, 107, 138, 20}));
  EXPECT_EQ(Layout(parts, 200).height(), 136);
}

TEST_F(RowLayoutTest, ASecondSliderStandsOnALineOfItsOwnWithItsCaptionBelowThatOfTheFirst) {
  parts.title = text(60);
  parts.columns = {.title = 80, .caption = 40};
  const auto* const first = control(10);
  const auto* const second = control(10);
  const auto* const caption = text(30);
  parts.controls = {{first, text(30), true}, {second, caption, true}};
  EXPECT_EQ(place(first, 400), (Rect{96, 0, 256, 34}));
  EXPECT_EQ(place(second, 400), (Rect{0, 34, 352, 34}));
  EXPECT_EQ(place(caption, 400), (Rect{357, 41, 40, 20}));
  EXPECT_EQ(Layout(parts, 400).height(), 68);
}

TEST_F(RowLayoutTest, WhatIsNotShownTakesNoRoom) {
  EXPECT_EQ(Layout(parts, 200).height(), 0);
  EXPECT_TRUE(Layout(parts, 200).places().empty());
}

RC_GTEST_FIXTURE_PROP(RowLayoutTest, NothingOverlapsOrIsLeftOut, ()) {
  const auto upTo = [](int widest) { return static_cast<double>(*rc::gen::inRange(1, widest)); };
  const auto maybe = [](const Piece* piece) { return *rc::gen::arbitrary<bool>() ? piece : nullptr; };
  parts.picture = maybe(control(upTo(60)));
  parts.title = maybe(text(upTo(200)));
  parts.note = maybe(text(upTo(600)));
  parts.problem = maybe(text(upTo(600)));
  parts.columns = {.title = upTo(100), .caption = upTo(60)};
  parts.padding = upTo(8);
  for (int count = *rc::gen::inRange(0, 4); count > 0; --count) {
    const bool stretches = *rc::gen::arbitrary<bool>();
    const auto* const caption = stretches ? maybe(text(upTo(60))) : nullptr;
    parts.controls.push_back({control(upTo(80)), caption, stretches});
  }
  const double width = *rc::gen::inRange(420, 900);
  const Layout layout(parts, width);
  RC_ASSERT(layout.places().size() == shownPieces());
  for (const auto& first : layout.places()) {
    for (const auto& second : layout.places()) {
      if (&first != &second) RC_ASSERT(!overlap(first.area, second.area));
    }
    RC_ASSERT(first.area.x >= 0 && first.area.maxX() <= width && first.area.width > 0);
    RC_ASSERT(first.area.y >= 0 && first.area.maxY() <= layout.height());
  }
}

}  // namespace tilwin::drawing
