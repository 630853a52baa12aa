#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <limits>

#include "core/geometry/GeometryCoding.h"
#include "core/snap/actions/SnapCoding.h"
#include "tests/core/Arbitrary.h"
#include "tests/core/JsonText.h"

namespace tilwin {

/// A record with every kind of member a record may have.
struct Note {
  std::string text{};
  bool isPinned = false;
  std::vector<std::int64_t> pages{};
  std::optional<double> weight{};

  bool operator==(const Note&) const = default;
};

template <>
struct JsonFields<Note> {
  static constexpr auto table =
      std::make_tuple(JsonField{"text", &Note::text}, JsonField{"isPinned", &Note::isPinned},
                      JsonField{"pages", &Note::pages}, JsonField{"weight", &Note::weight});
};

namespace {

using Kind = JsonError::Kind;

TEST(Json, KeysAreWrittenInTheOrderOfTheFields) {
  EXPECT_EQ(written(Rect{1, 2.5, 300, 0.1}), R"({"x":1,"y":2.5,"width":300,"height":0.1})");
  EXPECT_EQ(written(NormalizedRect{0.2, 0, 0.6, 1}), R"({"x":0.2,"y":0,"width":0.6,"height":1})");
  EXPECT_EQ(written(GridRegion(3, 2, 1, 0, 2, 1)),
            R"({"columns":3,"rows":2,"col":1,"row":0,"colSpan":2,"rowSpan":1})");
  EXPECT_EQ(written(DisplayInfo{
                .id = 4294967295, .frame = {0, 0, 10, 10}, .visibleFrame = {0, 1, 10, 9}, .isPrimary = true}),
            R"({"id":4294967295,"frame":{"x":0,"y":0,"width":10,"height":10},)"
            R"("visibleFrame":{"x":0,"y":1,"width":10,"height":9},"isPrimary":true})");
}

TEST(Json, KeysAreReadInAnyOrderAndUnknownOnesIgnored) {
  EXPECT_EQ(read<Rect>(R"({"height":4,"more":[],"width":3,"y":2,"x":1})"), (Rect{1, 2, 3, 4}));
}

TEST(Json, EveryKeyIsRequired) {
  for (const std::string key : {"x", "y", "width", "height"}) {
    std::string text = R"({"x":1,"y":2,"width":3,"height":4})";
    text.replace(text.find(key), key.size(), "other");
    expectError<Rect>(text, Kind::missingKey, key);
    expectError<NormalizedRect>(text, Kind::missingKey, key);
  }
  expectError<GridRegion>(R"({"columns":3,"rows":2,"col":1,"row":0,"colSpan":2})", Kind::missingKey,
                          "rowSpan");
}

TEST(Json, NullIsNoValueForARequiredKey) {
  expectError<Rect>(R"({"x":null,"y":2,"width":3,"height":4})", Kind::missingKey, "x");
}

TEST(Json, AnErrorSaysWhereTheFaultIs) {
  expectError<DisplayInfo>(
      R"({"id":1,"frame":{"x":0,"y":0,"width":"wide","height":1},"visibleFrame":{},"isPrimary":true})",
      Kind::wrongType, "frame.width");
  expectError<Note>(R"({"text":"","isPinned":true,"pages":[1,2,"three"]})", Kind::wrongType, "pages.2");
  const auto error = errorOf<Rect>(R"({"x":[],"y":2,"width":3,"height":4})");
  ASSERT_TRUE(error.has_value());
  EXPECT_STREQ(error->what(), "x: a number expected");
}

TEST(Json, AWholeNumberIsAValidFloat) { EXPECT_EQ(read<double>("8"), 8); }

TEST(Json, AFloatWithoutAFractionIsAWholeNumberAndOneWithAFractionIsNot) {
  EXPECT_EQ(read<std::int64_t>("2.0"), 2);
  EXPECT_EQ(read<std::int64_t>("-3e2"), -300);
  expectError<std::int64_t>("2.5", Kind::badValue, "");
}

TEST(Json, WholeNumbersOutsideTheirRangeAreErrors) {
  EXPECT_EQ(read<std::int64_t>("-9223372036854775808"), std::numeric_limits<std::int64_t>::min());
  EXPECT_EQ(read<std::int64_t>("9223372036854775807"), std::numeric_limits<std::int64_t>::max());
  expectError<std::int64_t>("9223372036854775808", Kind::badValue, "");
  expectError<std::int64_t>("1e30", Kind::badValue, "");
  expectError<std::uint32_t>("-1", Kind::badValue, "");
  expectError<std::uint32_t>("4294967296", Kind::badValue, "");
  EXPECT_EQ(read<std::uint32_t>("4294967295"), 4294967295);
}

TEST(Json, AFlagIsNotANumberNorANumberAFlag) {
  expectError<double>("true", Kind::wrongType, "");
  expectError<std::int64_t>("false", Kind::wrongType, "");
  expectError<bool>("1", Kind::wrongType, "");
  expectError<std::string>("1", Kind::wrongType, "");
}

TEST(Json, AnythingButAnObjectIsNoRecord) {
  for (const char* text : {"[]", "3", "\"x\"", "true", "null"}) {
    expectError<Rect>(text, Kind::wrongType, "");
  }
}

TEST(Json, WhatIsNotJsonIsAnError) {
  for (const char* text : {"", " ", "{", "{\"x\":1,}", "not json", "{} {}", "\"\xff\"", "1e"}) {
    expectError<double>(text, Kind::notJson, "");
  }
}

TEST(Json, OptionalMembersMayBeAbsentOrNullAndAreLeftOut) {
  EXPECT_EQ(read<Note>(R"({"text":"a","isPinned":false,"pages":[]})").weight, std::nullopt);
  EXPECT_EQ(read<Note>(R"({"text":"a","isPinned":false,"pages":[],"weight":null})").weight, std::nullopt);
  EXPECT_EQ(read<Note>(R"({"text":"a","isPinned":false,"pages":[],"weight":2})").weight, 2);
  expectError<Note>(R"({"text":"a","isPinned":false,"pages":[],"weight":"2"})", Kind::wrongType, "weight");
  EXPECT_EQ(written(Note{.text = "a"}), R"({"text":"a","isPinned":false,"pages":[]})");
  EXPECT_EQ(written(Note{.text = "ü\n", .pages = {1, -2}, .weight = 0.5}),
            R"({"text":"ü\n","isPinned":false,"pages":[1,-2],"weight":0.5})");
}

TEST(Json, AReaderFindsItsWayWithoutARecord) {
  const auto reader = JsonReader::parse(R"({"b":1,"a":null})");
  EXPECT_EQ(reader.keys(), (std::vector<std::string>{"a", "b"}));
  EXPECT_EQ(reader.find("a"), std::nullopt);
  EXPECT_EQ(reader.find("c"), std::nullopt);
  EXPECT_EQ(reader.member("b").number(), 1);
  EXPECT_THROW((void)reader.member("c"), JsonError);
  EXPECT_THROW((void)reader.member("b").keys(), JsonError);
  EXPECT_THROW((void)reader.elements(), JsonError);
}

TEST(Json, AReaderOutlivesTheOneItCameFrom) {
  const JsonReader inner = JsonReader::parse(R"({"list":[{"name":"kept"}]})").member("list").elements().at(0);
  EXPECT_EQ(inner.member("name").text(), "kept");
}

TEST(Json, WhatJsonCannotExpressIsNotWritten) {
  for (const double number :
       {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_TRUE(std::holds_alternative<JsonError>(encodeJson(Rect{0, 0, number, 0})));
  }
}

TEST(Json, ADecodedRegionIsNotBroughtIntoRange) {
  const auto region = read<GridRegion>(R"({"columns":2,"rows":1,"col":7,"row":-1,"colSpan":0,"rowSpan":9})");
  EXPECT_EQ(region.col, 7);
  EXPECT_EQ(region.row, -1);
  EXPECT_EQ(region.colSpan, 0);
  EXPECT_EQ(region.rowSpan, 9);
}

TEST(Json, ADecodedNormalizedRectIsNotBroughtIntoRange) {
  EXPECT_EQ(read<NormalizedRect>(R"({"x":-1,"y":2,"width":3.5,"height":0})"),
            (NormalizedRect{-1, 2, 3.5, 0}));
}

TEST(Json, AnActionIsItsRawValue) {
  EXPECT_EQ(written(SnapAction::leftTwoThirds), "\"leftTwoThirds\"");
  for (const SnapAction action : SnapActions::all()) EXPECT_EQ(read<SnapAction>(written(action)), action);
  expectError<SnapAction>("\"sideways\"", Kind::badValue, "");
  expectError<SnapAction>("3", Kind::wrongType, "");
}

RC_GTEST_PROP(JsonProperties, RectanglesReadBackToTheSameBits, ()) {
  const Rect rect = arbitrary::anyRect();
  const Rect back = read<Rect>(written(rect));
  RC_ASSERT(back == rect);
  RC_ASSERT(std::signbit(back.x) == std::signbit(rect.x));
  const NormalizedRect shares{rect.x, rect.y, rect.width, rect.height};
  RC_ASSERT(read<NormalizedRect>(written(shares)) == shares);
}

TEST(JsonProperties, ZeroKeepsItsSign) { EXPECT_TRUE(std::signbit(read<double>(written(-0.0)))); }

RC_GTEST_PROP(JsonProperties, DisplaysAndRegionsReadBackEqual,
              (std::uint32_t id, bool isPrimary, std::int64_t columns, std::int64_t col)) {
  const DisplayInfo display{id, arbitrary::anyRect(), arbitrary::anyRect(), isPrimary};
  RC_ASSERT(read<DisplayInfo>(written(display)) == display);
  GridRegion region;
  region.columns = columns;
  region.col = col;
  RC_ASSERT(read<GridRegion>(written(region)) == region);
}

RC_GTEST_PROP(JsonProperties, NoTextHarmsTheReader, (const std::string& text)) {
  (void)decodeJson<DisplayInfo>(text);
  (void)decodeJson<SnapAction>(text);
}

}  // namespace
}  // namespace tilwin
