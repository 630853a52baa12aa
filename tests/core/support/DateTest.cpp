#include "core/support/Date.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "core/support/JsonCoding.h"
#include "tests/core/Arbitrary.h"

namespace tilwin {
namespace {

using namespace std::chrono_literals;
using std::chrono::sys_days;

constexpr auto march = sys_days(std::chrono::year_month_day{2026y / 3 / 1});

TEST(Iso8601, WritesWholeSecondsInUtc) {
  EXPECT_EQ(Iso8601::text(march + 9h + 5min + 7s), "2026-03-01T09:05:07Z");
}

TEST(Iso8601, CutsFractionsOffBeforeTheEpochToo) {
  EXPECT_EQ(Iso8601::text(march + 1s + 999999us), "2026-03-01T00:00:01Z");
  EXPECT_EQ(Iso8601::text(Date(-1us)), "1969-12-31T23:59:59Z");
}

TEST(Iso8601, ReadsAnyOffset) {
  EXPECT_EQ(Iso8601::parse("2026-03-01T09:30:00Z"), march + 9h + 30min);
  EXPECT_EQ(Iso8601::parse("2026-03-01T09:30:00+02:30"), march + 7h);
  EXPECT_EQ(Iso8601::parse("2026-03-01T09:30:00-01:00"), march + 10h + 30min);
}

TEST(Iso8601, ReadsWhatElseTheStandardAllows) {
  EXPECT_EQ(Iso8601::parse("2026-03-01t09:30:00z"), march + 9h + 30min);
  EXPECT_EQ(Iso8601::parse("2026-03-01 00:00:00.25Z"), march + 250ms);
  EXPECT_EQ(Iso8601::parse("2026-03-01T00:00:00.1234567890123456789012345Z"), march + 123456us);
  EXPECT_EQ(Iso8601::parse("2026-12-31T23:59:60Z"), march + 306 * 24h) << "a leap second";
}

TEST(Iso8601, ReadsTheWholeRangeOfWrittenYears) {
  for (const char* text : {"0000-01-01T00:00:00Z", "0001-01-01T00:00:00Z", "9999-12-31T23:59:59Z"}) {
    const auto date = Iso8601::parse(text);
    ASSERT_TRUE(date.has_value()) << text;
    EXPECT_EQ(Iso8601::text(*date), text);
  }
}

TEST(Iso8601, DoesNotReadWhatItCouldNotWrite) {
  EXPECT_EQ(Iso8601::parse("0000-01-01T00:00:00+00:01"), std::nullopt);
  EXPECT_EQ(Iso8601::parse("9999-12-31T23:59:59-00:01"), std::nullopt);
  EXPECT_EQ(Iso8601::text(sys_days(std::chrono::year_month_day{10000y / 1 / 1})), std::nullopt);
}

TEST(Iso8601, RefusesEveryOtherText) {
  for (const char* text : {"",
                           "2026",
                           "2026-03-01",
                           "2026-03-01T09:30:00",
                           "2026-03-01T09:30Z",
                           "2026-13-01T00:00:00Z",
                           "2026-02-29T00:00:00Z",
                           "2026-00-10T00:00:00Z",
                           "2026-03-01T24:00:00Z",
                           "2026-03-01T09:60:00Z",
                           "2026-03-01T09:30:61Z",
                           "2026-03-01T09:30:00+24:00",
                           "2026-03-01T09:30:00+0200",
                           "2026-03-01T09:30:00.Z",
                           "2026-03-01T09:30:00Z ",
                           " 2026-03-01T09:30:00Z",
                           "+026-03-01T09:30:00Z",
                           "2026-3-1T09:30:00Z",
                           "20260301T093000Z",
                           "yesterday"}) {
    EXPECT_EQ(Iso8601::parse(text), std::nullopt) << text;
  }
}

TEST(Iso8601, RefusesADateCutOffAnywhere) {
  const std::string whole = "2026-03-01T09:30:00.5+02:00";
  for (std::size_t length = 0; length < whole.size(); ++length)
    EXPECT_EQ(Iso8601::parse(whole.substr(0, length)), std::nullopt) << length;
}

RC_GTEST_PROP(Iso8601, ReadsBackEverySecondItWrites, ()) {
  const Date date(std::chrono::seconds(*rc::gen::inRange<std::int64_t>(-62'167'219'200, 253'402'300'800)));
  RC_ASSERT(Iso8601::parse(Iso8601::text(date).value()) == date);
}

TEST(DateCoding, NamesTheTextThatIsNoDate) {
  const auto result = decodeJson<Date>(R"("soon")");
  ASSERT_TRUE(std::holds_alternative<JsonError>(result));
  EXPECT_STREQ(std::get<JsonError>(result).what(), "\"soon\" is not an ISO 8601 date");
}

TEST(DateCoding, RefusesToWriteYearsThatFourDigitsCannotHold) {
  const Date tooLate = sys_days(std::chrono::year_month_day{10000y / 1 / 1});
  EXPECT_TRUE(std::holds_alternative<JsonError>(encodeJson(tooLate)));
}

}  // namespace
}  // namespace tilwin
