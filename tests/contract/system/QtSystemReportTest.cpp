#include "platform/qt/system/QtSystemReport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "tests/core/EnvironmentVariable.h"

namespace tilwin::qt {
namespace {

using Commands = SystemFacts::Commands;

/// Somebody who has logged in at a display, with folders of their own.
struct QtSystemReportTest : testing::Test {
  EnvironmentVariable home{"HOME", "/home/somebody"};
  EnvironmentVariable config{"XDG_CONFIG_HOME", nullptr};
  EnvironmentVariable runtime{"XDG_RUNTIME_DIR", "/run/user/1000"};
  EnvironmentVariable display{"DISPLAY", ":7"};
  EnvironmentVariable session{"XDG_SESSION_TYPE", "x11"};
  EnvironmentVariable wayland{"WAYLAND_DISPLAY", nullptr};
  QtSystemReport report{"1.2.3"};
};

TEST_F(QtSystemReportTest, TellsTheVersionsOfTheProgramAndOfWhatItRunsOn) {
  const auto facts = report.facts();
  EXPECT_EQ(facts.versions.at(0), (NamedFact{"Tilwin", "1.2.3"}));
  for (const char* name : {"Qt", "System", "Kernel", "Processor"}) {
    const auto fact = std::ranges::find(facts.versions, name, &NamedFact::name);
    EXPECT_TRUE(fact != facts.versions.end() && !fact->value.empty()) << name;
  }
}

TEST_F(QtSystemReportTest, TellsWhereTheFilesAre) {
  const auto facts = report.facts();
  EXPECT_EQ(facts.home, "/home/somebody");
  EXPECT_EQ(facts.settingsFile, "/home/somebody/.config/Tilwin/Tilwin.conf");
  EXPECT_EQ(facts.commands, Commands::socket);
  EXPECT_EQ(facts.socket, "/run/user/1000/tilwin.display_7.socket");
}

TEST_F(QtSystemReportTest, WithoutARuntimeFolderThereIsNoSocket) {
  const EnvironmentVariable none("XDG_RUNTIME_DIR", nullptr);
  const auto facts = report.facts();
  EXPECT_EQ(facts.commands, Commands::noFolder);
  EXPECT_FALSE(facts.socket);
}

TEST_F(QtSystemReportTest, KnowsASessionOfWayland) {
  EXPECT_FALSE(report.facts().isWayland);
  const EnvironmentVariable compositor("WAYLAND_DISPLAY", "wayland-0");
  EXPECT_FALSE(report.facts().isWayland) << "the session's type counts";
  {
    const EnvironmentVariable untold("XDG_SESSION_TYPE", nullptr);
    EXPECT_TRUE(report.facts().isWayland);
  }
  const EnvironmentVariable other("XDG_SESSION_TYPE", "wayland");
  EXPECT_TRUE(report.facts().isWayland);
  EXPECT_EQ(report.facts().session, "wayland");
}

}  // namespace
}  // namespace tilwin::qt
