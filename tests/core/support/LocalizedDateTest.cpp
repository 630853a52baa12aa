#include "core/support/LocalizedDate.h"

#include <gtest/gtest.h>
#include <unicode/locid.h>

#include "tests/core/EnvironmentVariable.h"

namespace tilwin {
namespace {

using namespace std::chrono_literals;

/// The first of March 2026, 23:30 UTC.
constexpr Date lateInTheEvening = std::chrono::sys_days(std::chrono::year(2026) / 3 / 1) + 23h + 30min;

struct LocalizedDay : testing::Test {
  EnvironmentVariable all{"LC_ALL", nullptr};
  EnvironmentVariable time{"LC_TIME", nullptr};
  EnvironmentVariable language{"LANG", "en_US.UTF-8"};
  EnvironmentVariable zone{"TZ", "UTC"};
};

TEST_F(LocalizedDay, IsWrittenInTheMediumStyleOfTheUsersLocale) {
  EXPECT_EQ(LocalizedDate::medium(lateInTheEvening), "Mar 1, 2026");
  const EnvironmentVariable german("LC_ALL", "de_DE.UTF-8");
  EXPECT_EQ(LocalizedDate::medium(lateInTheEvening), "01.03.2026");
}

TEST_F(LocalizedDay, FollowsTheLocaleOfDatesWhereThatIsNotTheLanguages) {
  const EnvironmentVariable french("LC_TIME", "fr_FR.UTF-8");
  EXPECT_EQ(LocalizedDate::medium(lateInTheEvening), "1 mars 2026");
}

TEST_F(LocalizedDay, FollowsTheLocaleOfEverythingFirst) {
  const EnvironmentVariable french("LC_TIME", "fr_FR.UTF-8");
  const EnvironmentVariable english("LC_ALL", "en_GB.UTF-8");
  EXPECT_EQ(LocalizedDate::medium(lateInTheEvening), "1 Mar 2026");
}

TEST_F(LocalizedDay, PassesOverEmptyVariables) {
  const EnvironmentVariable empty("LC_ALL", "");
  EXPECT_EQ(LocalizedDate::medium(lateInTheEvening), "Mar 1, 2026");
}

TEST_F(LocalizedDay, IsEnglishWithoutALocale) {
  for (const char* posix : {"C", "POSIX", "C.UTF-8"}) {
    const EnvironmentVariable locale("LC_ALL", posix);
    EXPECT_EQ(LocalizedDate::medium(lateInTheEvening), "Mar 1, 2026") << posix;
  }
}

TEST_F(LocalizedDay, IsEnglishWithoutALocaleForDatesWhateverTheLanguage) {
  const icu::Locale before;
  UErrorCode error = U_ZERO_ERROR;
  icu::Locale::setDefault(icu::Locale::getGermany(), error);
  for (const char* posix : {"C", "POSIX", "C.UTF-8"}) {
    const EnvironmentVariable dates("LC_TIME", posix);
    EXPECT_EQ(LocalizedDate::medium(lateInTheEvening), "Mar 1, 2026") << posix;
  }
  icu::Locale::setDefault(before, error);
  EXPECT_EQ(error, U_ZERO_ERROR);
}

TEST_F(LocalizedDay, IsTheDayThatTheUserHadThen) {
  const EnvironmentVariable east("TZ", "Asia/Tokyo");
  EXPECT_EQ(LocalizedDate::medium(lateInTheEvening), "Mar 2, 2026");
}

}  // namespace
}  // namespace tilwin
