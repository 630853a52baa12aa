#include "platform/qt/system/ReleaseVersion.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <string>
#include <vector>

namespace tilwin::contract {
namespace {

using qt::ReleaseVersion;

TEST(ReleaseVersion, VersionsComeInTheOrderOfReleases) {
  const std::vector<std::string> inOrder{"0",
                                         "0.0.1",
                                         "0.9",
                                         "0.10-alpha",
                                         "0.10-beta",
                                         "0.10-beta2",
                                         "0.10-beta10",
                                         "0.10-rc.1",
                                         "0.10-rc.11",
                                         "0.10",
                                         "0.10.1",
                                         "1.0-1",
                                         "1.0-a",
                                         "1.0",
                                         "1.0.0.1",
                                         "2b3",
                                         "2",
                                         "2026.01.05",
                                         "18446744073709551615"};
  for (std::size_t later = 1; later < inOrder.size(); ++later) {
    for (std::size_t earlier = 0; earlier < later; ++earlier) {
      const auto before = ReleaseVersion::parse(inOrder[earlier]);
      const auto after = ReleaseVersion::parse(inOrder[later]);
      ASSERT_TRUE(before && after) << inOrder[earlier] << " and " << inOrder[later];
      EXPECT_LT(*before, *after) << inOrder[earlier] << " and " << inOrder[later];
    }
  }
}

TEST(ReleaseVersion, DifferentSpellingsAreTheSameVersion) {
  const auto version = ReleaseVersion::parse("1.2");
  for (const char* const same : {" 1.2\n", "v1.2", "V1.2.0", "1.2.0.0", "01.02", "1.2+build7", "1.2-"})
    EXPECT_EQ(ReleaseVersion::parse(same), version) << same;
}

TEST(ReleaseVersion, OtherTextIsNoVersion) {
  for (const char* const other : {"", " ", "v", "latest", ".1", "1.", "1..2", "1.x", "-1", "1.2 3",
                                  "1.2 (45)", "1.2\x01", "1,2", "18446744073709551616", "1.2+<b>", "१.२"})
    EXPECT_EQ(ReleaseVersion::parse(other), std::nullopt) << other;
  EXPECT_EQ(ReleaseVersion::parse(std::string(65, '1')), std::nullopt);
}

RC_GTEST_PROP(ReleaseVersion, AnyTextIsAVersionOrNot, (const std::string& text)) {
  const auto version = ReleaseVersion::parse(text);
  RC_ASSERT(version == ReleaseVersion::parse(text));
}

}  // namespace
}  // namespace tilwin::contract
