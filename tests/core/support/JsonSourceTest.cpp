#include "core/support/JsonSource.h"

#include "tests/core/Arbitrary.h"

namespace tilwin {
namespace {

TEST(JsonSource, LeavesOneSpaceForARunOfBlanks) {
  EXPECT_EQ(JsonSource::withSingleBlanks("{\n  \"a\":\t\r\n 1 }\n"), "{ \"a\": 1 } ");
  EXPECT_EQ(JsonSource::withSingleBlanks(""), "");
  EXPECT_EQ(JsonSource::withSingleBlanks(" \n\t"), " ");
}

TEST(JsonSource, NeverJoinsWhatBlanksPart) { EXPECT_EQ(JsonSource::withSingleBlanks("[1\n\n2]"), "[1 2]"); }

TEST(JsonSource, LeavesTextLiteralsAsTheyAre) {
  for (const char* json :
       {R"(["a  b","\"  c","d\\","  e"])", "\"two  spaces", R"("cut off  \)", "\"\n\n\""}) {
    EXPECT_EQ(JsonSource::withSingleBlanks(json), json);
  }
}

TEST(JsonSource, OtherCharactersAreNoBlanks) {
  EXPECT_EQ(JsonSource::withSingleBlanks("[\v\v\f\f\u00A0\u00A0]"), "[\v\v\f\f\u00A0\u00A0]");
}

TEST(JsonSource, ReplacesOnlyNumbersThatNoDoubleHolds) {
  EXPECT_EQ(JsonSource::withoutOverflows(R"([1e999,-1e999,1e308,"1e999",{"1e999":1E+400}])"),
            R"([null,null,1e308,"1e999",{"1e999":null}])");
}

TEST(JsonSource, WithSingleBlanksTwiceIsAsOnce) {
  EXPECT_TRUE(rc::check([] {
    const auto pieces = *rc::gen::container<std::vector<std::string>>(
        rc::gen::element<std::string>(" ", "\n", "  ", "\"", "\\", "a", "{", ",", "\t"));
    std::string text;
    for (const std::string& piece : pieces) text += piece;
    const std::string once = JsonSource::withSingleBlanks(text);
    RC_ASSERT(JsonSource::withSingleBlanks(once) == once);
  }));
}

}  // namespace
}  // namespace tilwin
