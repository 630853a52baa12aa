#include "platform/macos/system/MacUserDefaults.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tests/contract/TestLogs.h"
#include "tests/contract/UserFilesContract.h"
#include "tests/macos/c/preferences/StoredPreferences.h"

namespace tilwin::contract {
namespace {

class MacUserDefaultsWorld : public UserDefaultsWorld {
public:
  UserDefaults& defaults() override { return *defaults_; }
  void restart() override {
    preferences_.restart();
    defaults_.emplace(log_);
  }
  void setDiskFull(bool full) override { preferences_.setDiskFull(full); }

private:
  macos::c::StoredPreferences preferences_;
  SilentLog log_;
  std::optional<macos::MacUserDefaults> defaults_{log_};
};

std::unique_ptr<UserDefaultsWorld> makeMacUserDefaultsWorld() {
  return std::make_unique<MacUserDefaultsWorld>();
}

}  // namespace

INSTANTIATE_TEST_SUITE_P(MacOS, UserDefaultsContract, testing::Values(&makeMacUserDefaultsWorld));

// Application Support comes from Foundation.
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(BundleContract);

}  // namespace tilwin::contract

namespace tilwin::macos {
namespace {

constexpr const char* settingsKey = "tilwin.settings.v1";
constexpr const char* windowManager = "com.apple.WindowManager";
constexpr const char* edgeTiling = "EnableTilingByEdgeDrag";

struct MacUserDefaultsTest : testing::Test {
  [[nodiscard]] std::optional<bool> flagStoredAs(c::StoredValue value) {
    preferences.store(windowManager, edgeTiling, std::move(value));
    return defaults.flag(windowManager, edgeTiling);
  }

  c::StoredPreferences preferences;
  KeptLog log;
  MacUserDefaults defaults{log};
};

TEST_F(MacUserDefaultsTest, ABlobIsDataUnderExactlyItsKeyInTheDomainOfThisProgram) {
  defaults.setData(settingsKey, "{}");
  EXPECT_EQ(preferences.stored(c::StoredPreferences::ownDomain, settingsKey),
            c::StoredValue(c::StoredBytes{"{}"}));
}

TEST_F(MacUserDefaultsTest, WhatIsNoDataIsNothing) {
  for (const c::StoredValue& value : {c::StoredValue("{}"), c::StoredValue(true), c::StoredValue(1.0)}) {
    preferences.store(c::StoredPreferences::ownDomain, settingsKey, value);
    preferences.restart();
    EXPECT_EQ(defaults.data(settingsKey), std::nullopt);
  }
}

TEST_F(MacUserDefaultsTest, WhatIsNoDataIsStillThereAfterAWriteThatFailed) {
  preferences.store(c::StoredPreferences::ownDomain, settingsKey, "by hand");
  preferences.setDiskFull(true);
  defaults.setData(settingsKey, "{}");
  preferences.setDiskFull(false);
  preferences.restart();
  EXPECT_EQ(preferences.stored(c::StoredPreferences::ownDomain, settingsKey), c::StoredValue("by hand"));
}

TEST_F(MacUserDefaultsTest, AFailureIsLoggedOnceUntilAWriteHasWorked) {
  const std::string line = "Tilwin: settings cannot be saved in the user defaults";
  preferences.setDiskFull(true);
  defaults.setData(settingsKey, "1");
  defaults.setData(settingsKey, "2");
  EXPECT_EQ(log.lines, std::vector{line});
  preferences.setDiskFull(false);
  defaults.setData(settingsKey, "3");
  preferences.setDiskFull(true);
  defaults.setData(settingsKey, "4");
  EXPECT_EQ(log.lines, (std::vector{line, line}));
  EXPECT_EQ(defaults.data(settingsKey), "3");
}

TEST_F(MacUserDefaultsTest, AKeyThatIsNoTextStoresNothingAndIsLogged) {
  defaults.setData("\xff", "1");
  EXPECT_EQ(log.lines.size(), 1U);
  EXPECT_EQ(defaults.data("\xff"), std::nullopt);
  EXPECT_EQ(defaults.flag("\xff", edgeTiling), std::nullopt);
  EXPECT_EQ(defaults.flag(windowManager, "\xff"), std::nullopt);
}

TEST_F(MacUserDefaultsTest, AFlagOfAnotherDomainIsReadFromThere) {
  EXPECT_EQ(defaults.flag(windowManager, edgeTiling), std::nullopt);
  EXPECT_EQ(flagStoredAs(true), true);
  preferences.store(c::StoredPreferences::ownDomain, edgeTiling, false);
  EXPECT_EQ(defaults.flag(windowManager, edgeTiling), true);
  EXPECT_EQ(defaults.flag("com.apple.dock", edgeTiling), std::nullopt);
}

TEST_F(MacUserDefaultsTest, AFlagThatIsChangedInTheSystemsSettingsMeanwhileIsSeen) {
  EXPECT_EQ(flagStoredAs(true), true);
  EXPECT_EQ(flagStoredAs(false), false);
}

TEST_F(MacUserDefaultsTest, WhatIsNoFlagIsNothing) {
  EXPECT_EQ(flagStoredAs("true"), std::nullopt);
  EXPECT_EQ(flagStoredAs(1.0), std::nullopt);
  EXPECT_EQ(flagStoredAs(c::StoredBytes{"1"}), std::nullopt);
}

}  // namespace
}  // namespace tilwin::macos
