#include "platform/macos/support/CFText.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "tests/macos/c/objects/Values.h"

namespace tilwin::macos {
namespace {

TEST(CFText, TextComesBackAsItWas) {
  for (const std::string text :
       {"", "AXPosition", "Größe", "⌃⌥←", "😀 and \xef\xbf\xbd", "\xef\xbb\xbf begins"}) {
    const auto string = cfText(text);
    ASSERT_TRUE(string) << text;
    EXPECT_EQ(utf8(string.get()), text);
  }
  EXPECT_EQ(utf8(cfText(std::string("a\0b", 3)).get()), std::string("a\0b", 3));
}

TEST(CFText, BytesThatAreNotUtf8AreNoText) {
  for (const std::string bytes : {"\xff", "a\xc3", "\xed\xa0\x80", "\xc0\x80"}) EXPECT_FALSE(cfText(bytes));
}

TEST(CFText, HalfASurrogatePairBecomesAQuestionMark) {
  const auto broken = [](std::u16string units) {
    return CFOwned<CFStringRef>::created(
        static_cast<CFStringRef>(c::objects().make<c::StringObject>(std::move(units))));
  };
  EXPECT_EQ(utf8(broken(u"a\xd83d").get()), "a?");
  EXPECT_EQ(utf8(broken(u"\xde00-\xd83d\xde00").get()), "?-😀");
}

RC_GTEST_PROP(CFText, AnyBytesAreNoTextOrComeBackAsTheyWere, (const std::string& bytes)) {
  const auto string = cfText(bytes);
  if (string) RC_ASSERT(utf8(string.get()) == bytes);
}

}  // namespace
}  // namespace tilwin::macos
