#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "platform/qt/QtUserDefaults.h"
#include "tests/TemporaryFolder.h"
#include "tests/contract/TestLogs.h"
#include "tests/core/EnvironmentVariable.h"

namespace tilwin::contract {
namespace {

namespace fs = std::filesystem;

/// The folder of the settings, in a process that takes no permissions from what it makes.
struct QtUserDefaultsFolder : testing::Test {
  void save() {
    const mode_t usual = ::umask(0);
    defaults.setData("settings", "{}");
    ::umask(usual);
    EXPECT_EQ(defaults.data("settings"), "{}");
  }

  TemporaryFolder home;
  fs::path config = home.path() / ".config";
  EnvironmentVariable place{"XDG_CONFIG_HOME", config.c_str()};
  FailingLog log;
  qt::QtUserDefaults defaults{log};
};

TEST_F(QtUserDefaultsFolder, IsMadeForTheUserAlone) {
  save();
  EXPECT_EQ(fs::status(config / "Tilwin").permissions(), fs::perms::owner_all);
  EXPECT_EQ(fs::status(config).permissions(), fs::perms::owner_all);
}

TEST_F(QtUserDefaultsFolder, StaysAsItIsIfItIsThere) {
  constexpr auto shown = fs::perms::owner_all | fs::perms::group_read | fs::perms::group_exec;
  fs::create_directories(config / "Tilwin");
  fs::permissions(config / "Tilwin", shown);
  save();
  EXPECT_EQ(fs::status(config / "Tilwin").permissions(), shown);
}

}  // namespace
}  // namespace tilwin::contract
