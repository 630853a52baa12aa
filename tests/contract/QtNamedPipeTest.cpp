// The user's settings, or Qt's lock on them, are a named pipe, which whoever opens it waits for.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

#include "platform/qt/QtUserDefaults.h"
#include "tests/TemporaryFolder.h"
#include "tests/contract/NamedPipe.h"
#include "tests/contract/TestLogs.h"
#include "tests/core/EnvironmentVariable.h"

namespace tilwin::contract {
namespace {

struct QtNamedPipe : testing::Test {
  QtNamedPipe() { std::filesystem::create_directories(file.parent_path()); }

  TemporaryFolder config;
  EnvironmentVariable place{"XDG_CONFIG_HOME", config.path().c_str()};
  std::filesystem::path file = config.path() / "Tilwin" / "Tilwin.conf";
  KeptLog log;
  qt::QtUserDefaults defaults{log};
};

TEST_F(QtNamedPipe, HoldsNoSettingsAndIsNotWaitedFor) {
  EXPECT_FALSE(waitsForNamedPipe(file, [&] { EXPECT_EQ(defaults.data("settings"), std::nullopt); }));
}

TEST_F(QtNamedPipe, IsNotReplacedWhichIsLogged) {
  EXPECT_FALSE(waitsForNamedPipe(file, [&] { defaults.setData("settings", "{}"); }));
  EXPECT_TRUE(std::filesystem::is_fifo(file));
  EXPECT_EQ(log.lines, std::vector<std::string>{"Tilwin: settings cannot be saved in " + file.string()});
}

TEST_F(QtNamedPipe, InPlaceOfTheLockIsNotWaitedForWhichIsLogged) {
  const std::filesystem::path lock = file.string() + ".lock";
  std::ofstream(file) << "[General]\nsettings={}\n";
  EXPECT_FALSE(waitsForNamedPipe(lock, [&] {
    EXPECT_EQ(defaults.data("settings"), "{}");
    defaults.setData("settings", "new");
  }));
  EXPECT_TRUE(std::filesystem::is_fifo(lock));
  EXPECT_EQ(defaults.data("settings"), "{}");
  EXPECT_EQ(log.lines, std::vector<std::string>{"Tilwin: settings cannot be saved in " + file.string()});
}

}  // namespace
}  // namespace tilwin::contract
