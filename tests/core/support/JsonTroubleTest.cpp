#include <ctime>

#include "core/geometry/GeometryCoding.h"
#include "core/support/JsonCoding.h"
#include "tests/core/Arbitrary.h"
#include "tests/core/JsonText.h"

/// Texts that a file may hold though nobody meant to write them.

namespace tilwin {
namespace {

using Kind = JsonError::Kind;
using Numbers = std::map<std::string, double>;

TEST(JsonTrouble, AHundredThousandNestedBracketsAreSurvived) {
  const std::string deep(100000, '[');
  expectError<Rect>(deep, Kind::notJson, "");
  expectError<Rect>(deep + std::string(100000, ']'), Kind::wrongType, "");
  std::string objects;
  for (int level = 0; level < 100000; ++level) objects += "{\"x\":";
  expectError<Rect>(objects, Kind::notJson, "");
  expectError<Rect>(objects + "1" + std::string(100000, '}'), Kind::wrongType, "x");
}

TEST(JsonTrouble, ATextCutOffAtAnyByteIsAnErrorAndNoMore) {
  const std::string whole = R"({"x":1.5e3,"y":-2,"width":[true,null,"é\n"],"height":4})";
  for (std::size_t length = 0; length < whole.size(); ++length) {
    expectError<Rect>(whole.substr(0, length), Kind::notJson, "");
  }
}

TEST(JsonTrouble, TextThatIsNotUtf8IsNotRead) {
  for (const char* text : {"\"\xff\"", "\"\xc3\"", "\"\xed\xa0\x80\"", "\"\xf5\x80\x80\x80\"", "\xfe"}) {
    expectError<std::string>(text, Kind::notJson, "");
  }
}

TEST(JsonTrouble, WhatIsNotUtf8IsWrittenAsReplacementCharacters) {
  EXPECT_EQ(written(std::string("a\xff"
                                "b\xc3")),
            "\"a\xef\xbf\xbd"
            "b\xef\xbf\xbd\"");
  EXPECT_EQ(read<std::string>(written(std::string("\xed\xa0\x80"))).substr(0, 3), "\xef\xbf\xbd");
}

TEST(JsonTrouble, OfAKeyThatComesTwiceTheLastCounts) {
  EXPECT_EQ(read<Numbers>(R"({"a":1,"b":2,"a":3})"), (Numbers{{"a", 3}, {"b", 2}}));
  EXPECT_EQ(read<Rect>(R"({"x":"no","y":2,"width":3,"height":4,"x":1})"), (Rect{1, 2, 3, 4}));
}

TEST(JsonTrouble, ANumberTooLargeForAFloatFailsOnlyItsOwnField) {
  expectError<Rect>(R"({"x":1,"y":1e999,"width":3,"height":4})", Kind::missingKey, "y");
  const auto reader = JsonReader::parse(
      R"({"a":-1.5E+400,"b":[1,2e308,3],"c":"1e999 \" 1e999","1e999":4,"d":)" + std::string(400, '7') + "}");
  EXPECT_FALSE(reader.find("a").has_value());
  EXPECT_FALSE(reader.find("d").has_value());
  EXPECT_EQ(reader.member("b").elements().at(0).number(), 1);
  EXPECT_TRUE(reader.member("b").elements().at(1).isNull());
  EXPECT_EQ(reader.member("b").elements().at(2).number(), 3);
  EXPECT_EQ(reader.member("c").text(), "1e999 \" 1e999");
  EXPECT_EQ(reader.member("1e999").number(), 4);
}

TEST(JsonTrouble, ANumberTooLargeDoesNotMakeJsonOfWhatIsNone) {
  for (const char* text :
       {"[1e999", "[1e999,1e]", "[1e999,1e999.5]", "[1e999,\"", "[1e999,\"\\", "[1e999,1x]", "1e999 1"}) {
    expectError<double>(text, Kind::notJson, "");
  }
}

TEST(JsonTrouble, ANumberTooSmallForAFloatIsNothing) { EXPECT_EQ(read<double>("1e-999"), 0); }

/// The processor time of `deed`, in clock ticks.
template <typename Deed>
double costOf(const Deed& deed) {
  const std::clock_t began = std::clock();
  deed();
  return static_cast<double>(std::clock() - began);
}

/// Eight times as much costs 8 times as much when the cost grows with the size, and 64 times with its square.
constexpr double mostForEightTimes = 30;

void readAndWriteKeys(int count) {
  Numbers numbers;
  for (int key = 0; key < count; ++key) numbers[std::to_string(key)] = key;
  EXPECT_EQ(read<Numbers>(written(numbers)), numbers);
}

TEST(JsonTrouble, ManyKeysCostNoMoreEachThanFew) {
  const double few = costOf([] { readAndWriteKeys(4000); });
  EXPECT_LT(costOf([] { readAndWriteKeys(32000); }), few * mostForEightTimes);
}

void readNumbersTooLarge(std::size_t count) {
  std::string text = "[0";
  for (std::size_t index = 0; index < count; ++index) text += ",1e999";
  EXPECT_EQ(JsonReader::parse(text + "]").elements().size(), count + 1);
}

TEST(JsonTrouble, ManyNumbersTooLargeCostNoMoreEachThanFew) {
  const double few = costOf([] { readNumbersTooLarge(4000); });
  EXPECT_LT(costOf([] { readNumbersTooLarge(32000); }), few * mostForEightTimes);
}

TEST(JsonCollections, AMapIsAnObjectAndASetAnArray) {
  EXPECT_EQ(written(Numbers{{"b", 2}, {"a", 1.5}}), R"({"a":1.5,"b":2})");
  EXPECT_EQ(read<Numbers>("{}"), Numbers());
  EXPECT_EQ(written(std::set<std::string>{"b", "a"}), R"(["a","b"])");
  EXPECT_EQ(read<std::set<std::string>>(R"(["b","a","b"])"), (std::set<std::string>{"a", "b"}));
}

TEST(JsonCollections, OneBrokenEntrySpoilsTheWhole) {
  expectError<Numbers>(R"({"a":1,"b":"2"})", Kind::wrongType, "b");
  expectError<Numbers>(R"({"a":1,"b":null})", Kind::missingKey, "b");
  expectError<Numbers>("[1]", Kind::wrongType, "");
  expectError<std::set<std::string>>(R"(["a",1])", Kind::wrongType, "1");
  expectError<std::set<std::string>>("{}", Kind::wrongType, "");
}

TEST(JsonCollections, LossyElementsDropOutAlone) {
  const auto elements = read<std::vector<Lossy<double>>>(R"([1,"2",null,{"x":3},4])");
  ASSERT_EQ(elements.size(), 5);
  EXPECT_EQ(elements[0].value, 1);
  for (const std::size_t broken : {1U, 2U, 3U}) EXPECT_EQ(elements[broken].value, std::nullopt);
  EXPECT_EQ(elements[4].value, 4);
}

TEST(JsonPretty, HasALinePerValueAndSortedKeysAtEveryLevel) {
  const std::vector<Rect> rects{{1, 2, 3, 0.5}};
  const auto text = encodePrettyJson(rects);
  ASSERT_TRUE(std::holds_alternative<std::string>(text));
  EXPECT_EQ(std::get<std::string>(text), R"([
  {
    "height": 0.5,
    "width": 3,
    "x": 1,
    "y": 2
  }
])");
  EXPECT_EQ(read<std::vector<Rect>>(std::get<std::string>(text)), rects);
  EXPECT_TRUE(std::holds_alternative<JsonError>(encodePrettyJson(Rect{0, 0, HUGE_VAL, 0})));
}

TEST(JsonUuid, IsItsTextAndAnyOtherTextIsAnError) {
  const Uuid uuid = Uuid::random();
  EXPECT_EQ(written(uuid), "\"" + uuid.text() + "\"");
  EXPECT_EQ(read<Uuid>(written(uuid)), uuid);
  expectError<Uuid>("\"somewhere\"", Kind::badValue, "");
  expectError<Uuid>("7", Kind::wrongType, "");
}

}  // namespace
}  // namespace tilwin
