#include "platform/qt/XdgFolders.h"

#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

#include <filesystem>
#include <optional>

#include "platform/qt/QtUserDefaults.h"
#include "tests/contract/TestLogs.h"
#include "tests/contract/UnknownUser.h"
#include "tests/core/EnvironmentVariable.h"

namespace tilwin::qt {
namespace {

namespace fs = std::filesystem;

/// A user whose environment names no folder at all.
struct UserWithoutVariables : testing::Test {
  EnvironmentVariable home{"HOME", nullptr};
  EnvironmentVariable data{"XDG_DATA_HOME", nullptr};
  EnvironmentVariable config{"XDG_CONFIG_HOME", nullptr};
};

TEST_F(UserWithoutVariables, HasTheFoldersInTheHomeThatTheSystemKnows) {
  const passwd* const user = ::getpwuid(::geteuid());
  ASSERT_NE(user, nullptr);
  const fs::path known = user->pw_dir;
  EXPECT_EQ(XdgFolders::dataHome(), known / ".local" / "share");
  EXPECT_EQ(XdgFolders::configHome(), known / ".config");
}

TEST_F(UserWithoutVariables, HasThemThereTooIfTheHomeIsNamedByARelativePath) {
  const EnvironmentVariable relative("HOME", "home");
  EXPECT_EQ(XdgFolders::configHome(), fs::path(::getpwuid(::geteuid())->pw_dir) / ".config");
}

TEST_F(UserWithoutVariables, WhomTheSystemDoesNotKnowHasNone) {
  const UnknownUser user;
  EXPECT_EQ(XdgFolders::dataHome().has_value(), !user.isOne());
  EXPECT_EQ(XdgFolders::configHome().has_value(), !user.isOne());
}

TEST_F(UserWithoutVariables, WhomTheSystemDoesNotKnowHasSettingsForThisRunOnlyWhichIsLogged) {
  const UnknownUser user;
  if (!user.isOne()) return;  // the settings in a real home are not for tests
  KeptLog log;
  QtUserDefaults defaults(log);
  defaults.setData("settings", "{}");
  EXPECT_EQ(defaults.data("settings"), std::nullopt);
  EXPECT_EQ(log.lines, std::vector<std::string>{"Tilwin: settings cannot be saved: there is no home folder"});
}

}  // namespace
}  // namespace tilwin::qt
