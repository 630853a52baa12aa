#include "platform/macos/system/MacLocale.h"

#import <Foundation/Foundation.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>

#include "platform/macos/support/Text.h"

namespace tilwin::macos {

class MacLocaleTest : public testing::Test {
protected:
  void SetUp() override {
    if (const char* const set = std::getenv("LANG")) before_ = set;
  }
  void TearDown() override { before_ ? ::setenv("LANG", before_->c_str(), 1) : ::unsetenv("LANG"); }

private:
  std::optional<std::string> before_;
};

TEST_F(MacLocaleTest, AProgramStartedWithoutALocaleTakesThatOfTheSystem) {
  ::unsetenv("LANG");
  takeUserLocale();
  const std::string identifier = utf8([[NSLocale currentLocale] localeIdentifier]);
  ASSERT_FALSE(identifier.empty());
  EXPECT_EQ(std::getenv("LANG"), identifier);
}

TEST_F(MacLocaleTest, OneStartedFromATerminalKeepsThatOfTheTerminal) {
  ::setenv("LANG", "pt_BR.UTF-8", 1);
  takeUserLocale();
  EXPECT_STREQ(std::getenv("LANG"), "pt_BR.UTF-8");
}

}  // namespace tilwin::macos
